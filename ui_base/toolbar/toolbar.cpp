// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/toolbar/toolbar.h"

#include "ui_base/toolbar/toolbar_p.h"

#include "ui_base/popup/layoutbasewidget.h"
#include "ui_base/qtui/devicepixmap_p.h"
#include "ui_base/toolbar/buttonline_p.h"
#include "ui_base/toolbar/toolbargeometry_p.h"
#include "ui_base/toolbar/toolbutton_p.h"

#include <lumo_common_res/Styles>

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QCursor>
#include <QEvent>
#include <QGraphicsDropShadowEffect>
#include <QGridLayout>
#include <QPainter>
#include <QPaintEvent>
#include <QState>
#include <QStyle>
#include <QTimer>

#include <algorithm>
#include <iterator>
#include <limits>

namespace Vela::UiBase {
namespace {

constexpr int separatorMargin = 4;
// A grid keeps room for all cells before the last one, and a rank that only means "at the end" would
// make millions of them; so would a size that means "no end".
constexpr int mostCells = 10000;

ArrowedWindow::SArrowParam defaultArrow()
{
    ArrowedWindow::SArrowParam arrow;
    arrow.angle = 0;
    return arrow;
}

bool isOneSide(Qt::ToolBarArea area)
{
    return area == Qt::LeftToolBarArea || area == Qt::RightToolBarArea || area == Qt::TopToolBarArea
        || area == Qt::BottomToolBarArea;
}

// Qt works out the whole of a shape however little of it is to be painted.
void fillShape(QPainter &painter, const QPainterPath &path, bool isRectangle, const QColor &color,
               const QRect &exposed)
{
    const QRect bounds = path.controlPointRect().toAlignedRect();
    if (!bounds.intersects(exposed))
        return;
    if (isRectangle)
        painter.fillRect(bounds.intersected(exposed), color);
    else
        painter.fillPath(path, QBrush(color));
}

void drawFrame(QPainter &painter, const QRect &rect)
{
    const QLine edges[] = {{rect.topLeft(), rect.topRight()},
                           {rect.topRight(), rect.bottomRight()},
                           {rect.bottomRight(), rect.bottomLeft()},
                           {rect.bottomLeft(), rect.topLeft()}};
    painter.drawLines(edges, int(std::size(edges)));
}

// The pixels of drawFrame() for a thin line, also on screens of a higher ratio, where the lines would
// lie astride the edges. Qt paints a line of thousands of pixels one by one, which took half of the
// time of a long bar.
void fillFrame(QPainter &painter, const QRect &rect, const QColor &color)
{
    painter.fillRect(QRect(rect.topLeft(), rect.topRight()), color);
    painter.fillRect(QRect(rect.topRight(), rect.bottomRight()), color);
    painter.fillRect(QRect(rect.bottomLeft(), rect.bottomRight()), color);
    painter.fillRect(QRect(rect.topLeft(), rect.bottomLeft()), color);
}

// What Qt has posted to a button that has been polished and shown, and that is painted with its bar
// anyway. It scans all that is pending whenever it posts a request, so a long bar filled in one go
// would take its time for that.
void dropPending(ToolButton *button)
{
    if (!button->isVisible())
        return;
    QCoreApplication::removePostedEvents(button, QEvent::PolishRequest);
    QCoreApplication::removePostedEvents(button, QEvent::UpdateLater);
}

// Without scaling all at once, for Qt prepares itself anew for each fillRect().
void fillAll(QPainter &painter, const QVector<QRect> &rects, const QColor &color)
{
    if (painter.device()->devicePixelRatioF() == 1) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawRects(rects);
        return;
    }
    for (const QRect &rect : rects)
        painter.fillRect(rect, color);
}

QBoxLayout *makeLine(bool isHorizontal)
{
    if (isHorizontal)
        return new Internal::ButtonRow;
    return new Internal::ButtonColumn;
}

} // namespace

ToolBarPrivate::ToolBarPrivate() = default;

ToolBarPrivate::~ToolBarPrivate()
{
    stateMachine.stop();
    delete initialState;
}

void ToolBarPrivate::SetDefaults()
{
    const Resource::Styles &styles = Resource::Styles::Instance();
    offset = {100, 0};
    centered = true;
    mainContentMargins = {};
    groupContentMargins = {1, 1, 1, 1};
    backColor = styles.ColorToolPaletteMainBack();
    groupBackColor = styles.ColorActionPanelGroupBack();
    iconSize = {24, 24};
    buttonSize = {36, 36};
    buttonSpacing = 1;
    groupSpacing = 10;
    toolButtonStyle = Qt::ToolButtonIconOnly;
    autoPositionEnabled = false;
    mainRoundCorner = ToolBar::EToolBarRoundCorner::NoRoundCorners;
    groupRoundCorner = ToolBar::EToolBarRoundCorner::NoRoundCorners;
    cornerRadius = 4;
    defaultMenu = {defaultArrow(), 5, EDirection::Top, EWidgetsAlign::AlignCenter, {}};
    defaultMenuShadow = true;
    defaultTooltip = {defaultArrow(), 10, EDirection::Top, EWidgetsAlign::AlignCenter, {}};
    autoPositionInterval = 100;
    hideOnButtonClick = false;
    reservedMargin = 15;
    inShowMode = true;
    tooltipGroupName.clear();
    separatorColor = styles.ColorToolPaletteButtonSeparator();
    keepMenuStateOnHide = true;
    keepStateOnClickOutside = false;
    borderWidth = 1;
    borderColor = styles.ColorActionPanelBorder();
    borderAroundPanels = true;
    delayRelocationOnResize = false;
}

QAccessibleInterface *ToolBarPrivate::makeAccessible(const QString &className, QObject *object)
{
    class AccessibleToolBar : public QAccessibleWidget
    {
    public:
        using QAccessibleWidget::QAccessibleWidget;
        QString text(QAccessible::Text type) const override
        {
            const QString own = QAccessibleWidget::text(type);
            const auto *const bar = static_cast<const ToolBar *>(object());
            const QWidget *const opener = bar->d_func()->parentButton;
            const bool isNameless = type == QAccessible::Name && own.isEmpty();
            return isNameless && opener ? opener->accessibleName() : own;
        }
    };
    if (className != QLatin1String(ToolBar::staticMetaObject.className()))
        return nullptr;
    return new AccessibleToolBar(static_cast<QWidget *>(object), QAccessible::ToolBar);
}

void ToolBarPrivate::initialize(QWidget *parent)
{
    Q_Q(ToolBar);
    SetDefaults();
    QAccessible::installFactory(makeAccessible);
    q->setAttribute(Qt::WA_ShowWithoutActivating);
    q->setFocusPolicy(Qt::NoFocus);
    makeCentralWidget();
    refParent = parent;
    q->setMouseTracking(true);
    shadowEffect = new QGraphicsDropShadowEffect(q);
    shadowEffect->setBlurRadius(7.0);
    shadowEffect->setOffset(0.0);
    shadowEffect->setColor(Resource::Styles::Instance().ColorToolPaletteShadow());
    shadowEffect->setEnabled(false);
    q->setGraphicsEffect(shadowEffect);
    if (isOneSide(area))
        makeMainLayout();
    if (refParent)
        refParent->installEventFilter(q);
    autoPositionTimer = new QTimer(q);
    autoPositionTimer->setSingleShot(true);
    autoPositionTimer->setInterval(autoPositionInterval);
    QObject::connect(autoPositionTimer, &QTimer::timeout, q, &ToolBar::OnAutoPosition);
    q->InitializeStateMachine();
    q->InitializeResizeTimer();
}

const QPixmap &ToolBarPrivate::loaded(QPixmap &pixmap, const QString &file) const
{
    if (pixmap.isNull())
        pixmap = Internal::loadPixmap(file, Internal::devicePixelRatioFor(*q_func()));
    return pixmap;
}

const QPixmap &ToolBarPrivate::hSeparatorPixmap() const
{
    return loaded(hSeparator, QStringLiteral(":/resources/images/sys_hseparator.png"));
}

const QPixmap &ToolBarPrivate::vSeparatorPixmap() const
{
    return loaded(vSeparator, QStringLiteral(":/resources/images/sys_vseparator.png"));
}

void ToolBarPrivate::makeCentralWidget()
{
    Q_Q(ToolBar);
    centralWidget = new QWidget(q);
    centralWidget->setAttribute(Qt::WA_ShowWithoutActivating);
    centralWidget->setFocusPolicy(Qt::NoFocus);
    centralWidget->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    centralWidget->installEventFilter(q);
}

void ToolBarPrivate::makeMainLayout()
{
    Q_Q(ToolBar);
    mainLayout = q->IsHorizontalLayout() ? static_cast<QBoxLayout *>(new QHBoxLayout)
                                         : static_cast<QBoxLayout *>(new QVBoxLayout);
    mainLayout->setSizeConstraint(QLayout::SetMinimumSize);
    mainLayout->setContentsMargins(mainContentMargins);
    mainLayout->setSpacing(groupSpacing);
    centralWidget->setLayout(mainLayout);
    centralWidget->adjustSize();
    mainLayout->addStretch(0);
}

void ToolBarPrivate::AddButtonToLayout(ToolButton *button, const QString &groupName, int rank)
{
    Q_Q(ToolBar);
    const auto group = buttonsByGroup.find(groupName);
    if (group != buttonsByGroup.end()) {
        group->append(button);
        if (QWidget *const panel = panels.value(groupName))
            AddButtonToExistingPanelLayout(button, panel, group->size(), rank);
    } else {
        int index = -1;
        const bool hasSuccessor = FindPanelIndexToInsertInLayout(mainLayout, rank, index);
        buttonsByGroup.insert(groupName, {button});
        QWidget *const panel = takePanel(groupName);
        panels.insert(groupName, panel);
        AddButtonToNewPanelLayout(button, panel, rank);
        if (mainLayout && hasSuccessor)
            mainLayout->insertWidget(index, panel);
        else if (mainLayout)
            mainLayout->addWidget(panel);
        if (mainLayout && centralWidget->isVisible())
            panel->show();
        panel->adjustSize();
    }
    setRank(button, rank);
    mayHaveMenus = mayHaveMenus || qobject_cast<ToolButtonWithMenu *>(button);
    q->AdjustToolBarSize(false);
    q->update();
    dropPending(button);
    Q_EMIT q->LayoutChanged();
}

QWidget *ToolBarPrivate::makePanel(const QString &groupName)
{
    Q_Q(ToolBar);
    auto *const panel = new LayoutBaseWidget(centralWidget);
    panel->setAttribute(Qt::WA_ShowWithoutActivating);
    panel->setFocusPolicy(Qt::NoFocus);
    panel->installEventFilter(q);
    panel->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    panel->setObjectName(groupName);
    return panel;
}

int ToolBarPrivate::rankOf(const QString &groupName) const
{
    int lowest = std::numeric_limits<int>::max();
    for (ToolButton *const button : buttonsByGroup.value(groupName))
        lowest = std::min(lowest, buttonRanks.value(button, lowest));
    return lowest;
}

bool ToolBarPrivate::FindPanelIndexToInsertInLayout(QLayout *layout, int rank, int &index) const
{
    QWidget *best = nullptr;
    int bestRank = 0;
    for (auto it = panels.begin(); it != panels.end(); ++it) {
        const int panelRank = rankOf(it.key());
        if (panelRank <= rank || (best && panelRank >= bestRank))
            continue;
        best = it.value();
        bestRank = panelRank;
    }
    if (!layout || !best)
        return false;
    index = layout->indexOf(best);
    return true;
}

// The successor may stand in another panel: then the button goes to the end of its own.
bool ToolBarPrivate::FindButtonIndexToInsertInBoxLayout(QBoxLayout *layout, int rank,
                                                        int &index) const
{
    if (rank == std::numeric_limits<int>::max())
        return false;
    const auto next = ranked.lower_bound({rank + 1, nullptr});
    if (next == ranked.end())
        return false;
    index = layout->indexOf(next->second);
    return true;
}

void ToolBarPrivate::AddButtonToNewPanelLayout(ToolButton *button, QWidget *panel, int rank)
{
    Q_Q(ToolBar);
    if (isGrid) {
        auto *const grid = new QGridLayout;
        panel->setLayout(grid);
        addPlaceholders(grid, button, panel);
    } else {
        panel->setLayout(makeLine(q->IsHorizontalLayout()));
    }
    AddButtonToExistingPanelLayout(button, panel, 1, rank);
    panel->layout()->setContentsMargins(groupContentMargins);
    panel->layout()->setSpacing(buttonSpacing);
}

// They keep the room for a first column, or row, that is not full.
void ToolBarPrivate::addPlaceholders(QGridLayout *grid, const ToolButton *button,
                                     QWidget *panel) const
{
    if (q_func()->IsHorizontalLayout() == gridRowMajor || gridSize > mostCells)
        return;
    for (int cell = 0; cell < gridSize; ++cell) {
        auto *const placeholder = new QWidget(panel);
        placeholder->setAttribute(Qt::WA_ShowWithoutActivating);
        placeholder->setFocusPolicy(Qt::NoFocus);
        placeholder->setFixedSize(button->size());
        const int row = gridRowMajor ? 0 : cell;
        const int column = gridRowMajor ? cell : 0;
        grid->addWidget(placeholder, row, column);
        if (gridRowMajor) {
            grid->setColumnMinimumWidth(column, button->iconSize().width());
            grid->setColumnStretch(column, 0);
        } else {
            grid->setRowMinimumHeight(row, button->iconSize().height());
            grid->setRowStretch(row, 0);
        }
    }
}

void ToolBarPrivate::AddButtonToExistingPanelLayout(ToolButton *button, QWidget *panel, int count,
                                                    int rank)
{
    QLayout *const layout = panel->layout();
    if (!layout)
        return;
    if (isGrid) {
        auto *const grid = qobject_cast<QGridLayout *>(layout);
        if (!grid)
            return;
        placeInGrid(grid, button, (rank > 0 && rank <= mostCells ? rank : count) - 1);
    } else if (auto *const box = qobject_cast<QBoxLayout *>(layout)) {
        placeInBox(box, button, rank);
    } else {
        layout->addWidget(button);
    }
    panel->adjustSize();
}

void ToolBarPrivate::placeInGrid(QGridLayout *grid, ToolButton *button, int position) const
{
    const int quotient = position / gridSize;
    const int remainder = position % gridSize;
    const int row = gridRowMajor ? quotient : remainder;
    const int column = gridRowMajor ? remainder : quotient;
    QLayoutItem *const item = grid->itemAtPosition(row, column);
    QWidget *const occupant = item ? item->widget() : nullptr;
    if (occupant && !qobject_cast<ToolButton *>(occupant)) {
        grid->removeWidget(occupant);
        delete occupant;
    }
    grid->setColumnMinimumWidth(column, button->iconSize().width());
    grid->setRowMinimumHeight(row, button->iconSize().height());
    grid->setColumnStretch(column, 0);
    grid->setRowStretch(row, 0);
    grid->addWidget(button, row, column);
}

void ToolBarPrivate::placeInBox(QBoxLayout *box, ToolButton *button, int rank) const
{
    int index = -1;
    FindButtonIndexToInsertInBoxLayout(box, rank, index);
    QWidget *const panel = box->parentWidget();
    auto *const line = Internal::ButtonLine::of(panel);
    if (!line) {
        box->insertWidget(index, button);
        return;
    }
    if (button->parentWidget() != panel)
        button->setParent(panel);
    line->insertButton(index, button);
}

// A button with a style sheet is made in its place: to move it there later would have Qt polish it
// once more.
QWidget *ToolBarPrivate::parentForNewButton(const QString &groupName)
{
    if (QWidget *const panel = panels.value(groupName))
        return panel;
    if (!coming)
        coming = makePanel(groupName);
    return coming->objectName() == groupName ? coming.data() : q_ptr;
}

QWidget *ToolBarPrivate::takePanel(const QString &groupName)
{
    const bool isMade = coming && coming->objectName() == groupName;
    return isMade ? std::exchange(coming, nullptr).data() : makePanel(groupName);
}

void ToolBarPrivate::setRank(ToolButton *button, int rank)
{
    const auto known = buttonRanks.constFind(button);
    if (known != buttonRanks.constEnd())
        ranked.erase({*known, button});
    buttonRanks[button] = rank;
    ranked.insert({rank, button});
}

// The button is dying, so nothing may be asked of it any more.
void ToolBarPrivate::forget(ToolButton *button)
{
    for (QList<ToolButton *> &buttons : buttonsByGroup)
        buttons.removeAll(button);
    const auto rank = buttonRanks.constFind(button);
    if (rank != buttonRanks.constEnd()) {
        ranked.erase({*rank, button});
        buttonRanks.erase(rank);
    }
    forgetCommandId(button);
    UpdatePathMaps();
}

void ToolBarPrivate::forgetCommandId(ToolButton *button)
{
    const auto known = commandIdOf.find(button);
    if (known == commandIdOf.end())
        return;
    buttonsOfId.remove(*known, button);
    commandIdOf.erase(known);
}

void ToolBarPrivate::forEachButton(const std::function<void(ToolButton &)> &visit) const
{
    QList<QPointer<ToolButton>> all;
    for (ToolButton *const button : CollectButtons<ToolButton>())
        all << button;
    for (const QPointer<ToolButton> &button : qAsConst(all)) {
        if (button)
            visit(*button);
    }
}

void ToolBarPrivate::forEachLayout(
    const std::function<void(QWidget &panel, QLayout &layout)> &visit) const
{
    for (QWidget *const panel : panels) {
        if (QLayout *const layout = panel->layout())
            visit(*panel, *layout);
    }
}

void ToolBarPrivate::UpdatePathMaps()
{
    pathsAreStale = true;
    separatorsAreStale = true;
}

void ToolBarPrivate::UpdateButtonSeparatorPaths()
{
    separatorsAreStale = true;
}

void ToolBarPrivate::EnsurePaths()
{
    if (std::exchange(pathsAreStale, false))
        preparePanelPaths();
    if (std::exchange(separatorsAreStale, false))
        prepareSeparators();
}

void ToolBarPrivate::preparePanelPaths()
{
    panelPaths.clear();
    for (QWidget *const panel : qAsConst(panels)) {
        const QRect rect = panel->geometry().translated(centralWidget->pos());
        panelPaths.insert(panel, Internal::cornerShape(groupRoundCorner, rect, cornerRadius, area));
    }
    backgroundPath =
        Internal::cornerShape(mainRoundCorner, centralWidget->geometry(), cornerRadius, area);
}

void ToolBarPrivate::prepareSeparators()
{
    separatorRects.clear();
    for (auto it = buttonsByGroup.cbegin(); it != buttonsByGroup.cend(); ++it) {
        QWidget *const panel = panels.value(it.key());
        const auto path = panelPaths.constFind(panel);
        if (!panel || path == panelPaths.constEnd())
            continue;
        const QRect rect = path->controlPointRect().toRect();
        const auto *const grid = qobject_cast<QGridLayout *>(panel->layout());
        if (!isGrid)
            addSeparatorsOfBox(*it, rect);
        else if (grid && grid->rowCount() > 0 && grid->columnCount() > 0)
            addSeparatorsOfGrid(*it, rect, gridRowMajor ? grid->columnCount() : grid->rowCount(),
                                gridRowMajor ? grid->rowCount() : grid->columnCount());
    }
}

// The gap after a button is on its other side where buttons stand from right to left.
void ToolBarPrivate::addSeparator(bool afterHorizontally, const ToolButton &button,
                                  const QRect &panel)
{
    const QRect room(QPoint(), panel.size());
    const Qt::LayoutDirection direction = q_func()->layoutDirection();
    const QRect place = QStyle::visualRect(direction, room, button.geometry());
    const QRect gap =
        Internal::separatorAfter(afterHorizontally, place, buttonSpacing, separatorMargin);
    separatorRects << QStyle::visualRect(direction, room, gap).translated(panel.topLeft());
}

// The last in the list is the button that was added last, wherever it stands.
void ToolBarPrivate::addSeparatorsOfBox(const QList<ToolButton *> &buttons, const QRect &panel)
{
    const bool isHorizontal = q_func()->IsHorizontalLayout();
    for (int i = 0; i < buttons.size() - 1; ++i)
        addSeparator(isHorizontal, *buttons[i], panel);
}

void ToolBarPrivate::addSeparatorsOfGrid(const QList<ToolButton *> &buttons, const QRect &panel,
                                         int perLine, int lines)
{
    for (int i = 0; i < buttons.size(); ++i) {
        if (i % perLine != perLine - 1)
            addSeparator(gridRowMajor, *buttons[i], panel);
        if (i / perLine < lines - 1)
            addSeparator(!gridRowMajor, *buttons[i], panel);
    }
}

void ToolBarPrivate::paintPlates(QPainter &painter, const QRect &exposed) const
{
    const auto isSquare = [](ToolBar::EToolBarRoundCorner corners) {
        return corners != ToolBar::EToolBarRoundCorner::RoundAllCorners
            && corners != ToolBar::EToolBarRoundCorner::RoundOuterCorners;
    };
    const bool hidesBackground = isSquare(groupRoundCorner) && groupBackColor.alpha() == 255;
    if (isSquare(mainRoundCorner) && hidesBackground)
        paintVisibleBackground(painter, exposed);
    else
        fillShape(painter, backgroundPath, isSquare(mainRoundCorner), backColor, exposed);
    for (const QPainterPath &path : panelPaths)
        fillShape(painter, path, isSquare(groupRoundCorner), groupBackColor, exposed);
}

// Plates cover most of a bar, and filling them twice took a fifth of the time of a painting.
void ToolBarPrivate::paintVisibleBackground(QPainter &painter, const QRect &exposed) const
{
    QRegion visible(backgroundPath.controlPointRect().toAlignedRect().intersected(exposed));
    for (const QPainterPath &path : panelPaths)
        visible -= path.controlPointRect().toAlignedRect();
    for (const QRect &rect : visible)
        painter.fillRect(rect, backColor);
}

void ToolBarPrivate::paintSeparators(QPainter &painter, const QRect &exposed) const
{
    QVector<QRect> seen;
    std::copy_if(separatorRects.cbegin(), separatorRects.cend(), std::back_inserter(seen),
                 [&exposed](const QRect &rect) { return rect.intersects(exposed); });
    fillAll(painter, seen, separatorColor);
}

void ToolBarPrivate::paintBorder(QPainter &painter, const QRect &exposed) const
{
    if (borderWidth == 0)
        return;
    painter.setPen(QPen(QBrush(borderColor), borderWidth));
    painter.setBrush(Qt::NoBrush);
    if (!borderAroundPanels) {
        painter.drawRect(centralWidget->rect());
        return;
    }
    const int reach = borderWidth + 1;
    const bool isThin = borderWidth == 1;
    for (const QPainterPath &path : panelPaths) {
        const QRect rect = path.boundingRect().toRect();
        if (rect.adjusted(-reach, -reach, reach, reach).intersects(exposed))
            isThin ? fillFrame(painter, rect, borderColor) : drawFrame(painter, rect);
    }
}

ToolBar::ToolBar(QWidget *parent, Qt::ToolBarArea area)
    : ToolBar(*new ToolBarPrivate, parent, area)
{ }

ToolBar::ToolBar(int gridSize, bool gridRowMajor, QWidget *parent, Qt::ToolBarArea area)
    : ToolBar(*new ToolBarPrivate, parent, area, gridSize, gridRowMajor)
{ }

ToolBar::ToolBar(ToolBarPrivate &dd, QWidget *parent, Qt::ToolBarArea area, int gridSize,
                 bool gridRowMajor)
    : QWidget(parent, Qt::FramelessWindowHint)
    , d_ptr(&dd)
{
    d_ptr->q_ptr = this;
    d_ptr->area = area;
    d_ptr->isGrid = gridSize > 0;
    d_ptr->gridSize = gridSize;
    d_ptr->gridRowMajor = gridRowMajor;
    d_ptr->initialize(parent);
}

ToolBar::~ToolBar()
{
    Q_D(ToolBar);
    // What stands in menus tells of its popups to this bar too, and goes with its buttons.
    for (const ToolButton *const button : d->CollectButtons<ToolButton>(true))
        disconnect(button, nullptr, this, nullptr);
    // They go after the private part, which they would sign off from, and may close their popups.
    for (ToolButton *const button : findChildren<ToolButton *>()) {
        disconnect(button, nullptr, this, nullptr);
        if (button->d_func()->toolBar == this)
            button->d_func()->toolBar = nullptr;
    }
}

bool ToolBar::IsHorizontalLayout() const
{
    Q_D(const ToolBar);
    return d->area == Qt::TopToolBarArea || d->area == Qt::BottomToolBarArea;
}

bool ToolBar::IsGridLayout() const
{
    Q_D(const ToolBar);
    return d->isGrid;
}

void ToolBar::OnToolBarAreaSetLayout()
{
    Q_D(ToolBar);
    if (d->mainLayout || !isOneSide(d->area))
        return;
    d->makeMainLayout();
    QList<QPair<int, QWidget *>> byRank;
    for (auto it = d->panels.cbegin(); it != d->panels.cend(); ++it)
        byRank << qMakePair(d->rankOf(it.key()), it.value());
    std::stable_sort(byRank.begin(), byRank.end(),
                     [](const auto &a, const auto &b) { return a.first < b.first; });
    for (const auto &[rank, panel] : qAsConst(byRank)) {
        if (auto *const line = qobject_cast<QBoxLayout *>(panel->layout()))
            line->setDirection(IsHorizontalLayout() ? QBoxLayout::LeftToRight
                                                    : QBoxLayout::TopToBottom);
        d->mainLayout->addWidget(panel);
    }
    AdjustToolBarSize(false);
}

void ToolBar::AdjustToolBarSize(bool forceRelayout)
{
    Q_D(ToolBar);
    for (QWidget *const panel : qAsConst(d->panels)) {
        if (forceRelayout && panel->layout()) {
            const QSize oldSize = size();
            panel->layout()->setSizeConstraint(QLayout::SetDefaultConstraint);
            resize(oldSize + QSize(1, 1));
            panel->layout()->setSizeConstraint(QLayout::SetMinimumSize);
            resize(oldSize);
        }
    }
    {
        const Internal::ButtonLine::Resizing guard(d->panels);
        d->updateMinimumSizes();
        for (QWidget *const panel : qAsConst(d->panels))
            panel->adjustSize();
        d->centralWidget->adjustSize();
    }
    // A hidden widget tells of its size only when it is shown, too late for who places the bar.
    if (!d->centralWidget->isVisible())
        resize(d->centralWidget->size());
    d->UpdatePathMaps();
    OnAutoPosition();
}

// Those of before would keep panels and bar from shrinking.
void ToolBarPrivate::updateMinimumSizes() const
{
    for (QWidget *const panel : panels) {
        if (QLayout *const layout = panel->layout()) {
            // A line knows what has changed; to forget all that it has summed up would not help.
            const Internal::ButtonLine::SettingUp guard(Internal::ButtonLine::of(panel));
            layout->activate();
        }
        panel->updateGeometry();
    }
    if (mainLayout)
        mainLayout->activate();
}

void ToolBar::SetMainContentMargins(QMargins margins)
{
    Q_D(ToolBar);
    d->mainContentMargins = margins;
    if (d->mainLayout)
        d->mainLayout->setContentsMargins(margins);
}

QMargins ToolBar::GetMainContentMargins() const
{
    Q_D(const ToolBar);
    return d->mainContentMargins;
}

void ToolBar::SetGroupContentMargins(QMargins margins)
{
    Q_D(ToolBar);
    d->groupContentMargins = margins;
    d->forEachLayout([&margins](QWidget &panel, QLayout &layout) {
        layout.setContentsMargins(margins);
        panel.adjustSize();
    });
}

QMargins ToolBar::GetGroupContentMargins() const
{
    Q_D(const ToolBar);
    return d->groupContentMargins;
}

void ToolBar::SetButtonSpacing(int spacing)
{
    Q_D(ToolBar);
    d->buttonSpacing = spacing;
    d->forEachLayout([spacing](QWidget &panel, QLayout &layout) {
        layout.setSpacing(spacing);
        panel.adjustSize();
    });
}

int ToolBar::GetButtonSpacing() const
{
    Q_D(const ToolBar);
    return d->buttonSpacing;
}

void ToolBar::SetButtonGroupSpacing(int spacing)
{
    Q_D(ToolBar);
    d->groupSpacing = spacing;
    if (d->mainLayout)
        d->mainLayout->setSpacing(spacing);
}

int ToolBar::GetButtonGroupSpacing() const
{
    Q_D(const ToolBar);
    return d->groupSpacing;
}

void ToolBar::SetButtonSize(const QSize &size)
{
    Q_D(ToolBar);
    if (size.width() < 0 || size.height() < 0)
        return;
    d->buttonSize = size;
    const int difference = ButtonIconSizeDiff();
    d->iconSize = size - QSize(difference, difference);
    d->forEachButton([d](ToolButton &button) {
        button.setFixedSize(d->buttonSize);
        button.setMinimumSize(d->buttonSize);
        button.setIconSize(d->iconSize);
        button.updateGeometry();
    });
    AdjustToolBarSize(false);
}

QSize ToolBar::ButtonSize() const
{
    Q_D(const ToolBar);
    return d->buttonSize;
}

QSize ToolBar::IconSize() const
{
    Q_D(const ToolBar);
    return d->iconSize;
}

int ToolBar::ButtonIconSizeDiff()
{
    Q_D(ToolBar);
    return Internal::iconSizeDifference(d->buttonSize.width());
}

void ToolBar::SetToolButtonStyle(Qt::ToolButtonStyle style)
{
    Q_D(ToolBar);
    d->toolButtonStyle = style;
    d->forEachButton([style](ToolButton &button) { button.setToolButtonStyle(style); });
}

void ToolBar::SetButtonStyleSheet(const QString &styleSheet, bool includeSubMenus)
{
    Q_D(ToolBar);
    d->forEachButton([&](ToolButton &button) {
        button.setStyleSheet(styleSheet);
        if (ToolBar *const menu = includeSubMenus ? ToolBarPrivate::subMenuOf(button) : nullptr)
            menu->SetButtonStyleSheet(styleSheet, true);
    });
}

void ToolBar::SetBackColor(const QColor &color)
{
    Q_D(ToolBar);
    d->backColor = color;
    d->cutOutLayer();
    update();
}

void ToolBar::SetGroupBackColor(const QColor &color)
{
    Q_D(ToolBar);
    d->groupBackColor = color;
    update();
}

void ToolBar::SetButtonSeparatorColor(const QColor &color)
{
    Q_D(ToolBar);
    d->separatorColor = color;
}

void ToolBar::SetBorder(int width, const QColor &color, bool aroundPanels)
{
    Q_D(ToolBar);
    d->borderWidth = width;
    d->borderColor = color;
    d->borderAroundPanels = aroundPanels;
    d->cutOutLayer();
    update();
}

void ToolBar::SetRoundCorner(EToolBarRoundCorner main, EToolBarRoundCorner group, int radius)
{
    Q_D(ToolBar);
    d->mainRoundCorner = main;
    d->groupRoundCorner = group;
    d->cornerRadius = radius;
    d->UpdatePathMaps();
    update();
}

void ToolBar::EnableShadow(bool enable)
{
    Q_D(ToolBar);
    d->shadowEffect->setEnabled(enable);
    d->cutOutLayer();
}

void ToolBar::SetPos(const QPoint &pos)
{
    Q_D(ToolBar);
    d->centralWidget->move(pos);
    d->UpdatePathMaps();
    d->cutOutLayer();
    update();
}

QPoint ToolBar::Pos() const
{
    Q_D(const ToolBar);
    return d->centralWidget->pos();
}

void ToolBar::CopyAllParametersFrom(const ToolBar *other)
{
    Q_D(ToolBar);
    if (!other)
        return;
    const ToolBarPrivate *const from = other->d_func();
    d->mainContentMargins = from->mainContentMargins;
    d->groupContentMargins = from->groupContentMargins;
    d->backColor = from->backColor;
    d->groupBackColor = from->groupBackColor;
    d->centered = from->centered;
    SetButtonSize(from->buttonSize);
    d->iconSize = from->iconSize;
    d->buttonSpacing = from->buttonSpacing;
    d->groupSpacing = from->groupSpacing;
    d->toolButtonStyle = from->toolButtonStyle;
    d->autoPositionEnabled = from->autoPositionEnabled;
    d->mainRoundCorner = from->mainRoundCorner;
    d->groupRoundCorner = from->groupRoundCorner;
    d->cornerRadius = from->cornerRadius;
    CopyButtonDefaultTooltipParameters(other);
    CopyButtonDefaultMenuParameters(other);
    d->autoPositionInterval = from->autoPositionInterval;
    d->hideOnButtonClick = from->hideOnButtonClick;
    d->reservedMargin = from->reservedMargin;
    d->borderColor = from->borderColor;
    d->borderWidth = from->borderWidth;
}

void ToolBar::CopyButtonDefaultMenuParameters(const ToolBar *other)
{
    Q_D(ToolBar);
    if (!other)
        return;
    d->defaultMenu = other->d_func()->defaultMenu;
    d->defaultMenuShadow = other->d_func()->defaultMenuShadow;
}

void ToolBar::CopyButtonDefaultTooltipParameters(const ToolBar *other)
{
    Q_D(ToolBar);
    if (other)
        d->defaultTooltip = other->d_func()->defaultTooltip;
}

void ToolBar::SetButtonDefaultMenuParameters(bool shadow, const ArrowedWindow::SArrowParam &arrow,
                                             int offset, EDirection direction, EWidgetsAlign align,
                                             QPoint additionalOffset)
{
    Q_D(ToolBar);
    d->defaultMenu = {arrow, offset, direction, align, additionalOffset};
    d->defaultMenuShadow = shadow;
}

void ToolBar::SetButtonDefaultTooltipParameters(const ArrowedWindow::SArrowParam &arrow, int offset,
                                                EDirection direction, EWidgetsAlign align,
                                                QPoint additionalOffset)
{
    Q_D(ToolBar);
    d->defaultTooltip = {arrow, offset, direction, align, additionalOffset};
}

void ToolBar::SetTooltipGroup(const QString &group)
{
    Q_D(ToolBar);
    d->tooltipGroupName = group;
}

QString ToolBar::GetTooltipGroupName() const
{
    Q_D(const ToolBar);
    return d->tooltipGroupName;
}

QSize ToolBar::sizeHint() const
{
    Q_D(const ToolBar);
    return d->mainLayout ? d->centralWidget->sizeHint() : QWidget::sizeHint();
}

QSize ToolBar::minimumSizeHint() const
{
    return sizeHint();
}

bool ToolBar::Hovered()
{
    return rect().contains(mapFromGlobal(QCursor::pos()));
}

void ToolBar::paintEvent(QPaintEvent *event)
{
    Q_D(ToolBar);
    d->EnsurePaths();
    QPainter painter(this);
    painter.setRenderHint(QPainter::TextAntialiasing);
    d->paintPlates(painter, event->rect());
    d->paintSeparators(painter, event->rect());
    d->paintBorder(painter, event->rect());
}

void ToolBar::resizeEvent(QResizeEvent *event)
{
    Q_D(ToolBar);
    d->UpdateButtonSeparatorPaths();
    QWidget::resizeEvent(event);
    OnAutoPosition();
}

} // namespace Vela::UiBase

// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/toolbar/buttonplates_p.h"
#include "ui_base/toolbar/toolbar.h"
#include "ui_base/toolbar/toolbuttonwithmenu.h"
#include "ui_base/toolbar/toolbuttonwithwidgetmenu.h"

#include <QColor>
#include <QHash>
#include <QList>
#include <QPainterPath>
#include <QPixmap>
#include <QPointer>
#include <QStateMachine>
#include <QVector>

#include <functional>
#include <memory>
#include <set>
#include <utility>
#include <vector>

class QAccessibleInterface;
class QBoxLayout;
class QGraphicsDropShadowEffect;
class QGridLayout;
class QPainter;
class QState;
class QTimer;

namespace Vela::UiBase {

class ToolButtonWithButtonMenu;

/// How a popup that belongs to a button stands beside it. Lengths are logical pixels.
struct SPopupDefaults
{
    ArrowedWindow::SArrowParam arrow;
    int offset = 5;
    EDirection direction = EDirection::Top;
    EWidgetsAlign align = EWidgetsAlign::AlignCenter;
    QPoint additionalOffset;
};

/// The state of a ToolBar. A subclass with state of its own derives from this and hands an object of
/// its class to the protected constructor of the bar. Lengths are logical pixels, times milliseconds.
class LUMO_UI_BASE_EXPORT ToolBarPrivate
{
    Q_DECLARE_PUBLIC(ToolBar)

public:
    ToolBarPrivate();
    virtual ~ToolBarPrivate();

    /// Brings all fields to the values of a new bar, apart from what the constructor is given.
    virtual void SetDefaults();

    void AddButtonToLayout(ToolButton *button, const QString &groupName, int rank);
    bool FindPanelIndexToInsertInLayout(QLayout *layout, int rank, int &index) const;
    bool FindButtonIndexToInsertInBoxLayout(QBoxLayout *layout, int rank, int &index) const;
    void AddButtonToNewPanelLayout(ToolButton *button, QWidget *panel, int rank);
    void AddButtonToExistingPanelLayout(ToolButton *button, QWidget *panel, int count, int rank);
    /// Appends the buttons of the bar, by the names of their groups and in the order of adding.
    void AddButtonsToList(QList<ToolButton *> &list, bool includeSubMenus) const;

    /// Hides a widget. Of a bar the menus are closed before: whoever hears of that may delete the bar,
    /// which Qt does not bear while it hides a widget.
    static void hide(QWidget *widget);

    /// Marks all paths as out of date; they are worked out before the next painting.
    void UpdatePathMaps();
    /// Marks the separators alone as out of date.
    void UpdateButtonSeparatorPaths();
    /// Works out what is out of date.
    void EnsurePaths();

    /// The buttons of the bar that are a @p T, by the names of their groups and in the order of adding.
    /// @param includeSubMenus whether those of a button's menu follow the button
    template<typename T>
    QList<T *> CollectButtons(bool includeSubMenus = false) const
    {
        QList<ToolButton *> all;
        AddButtonsToList(all, includeSubMenus);
        QList<T *> found;
        for (ToolButton *const button : qAsConst(all)) {
            if (auto *const wanted = qobject_cast<T *>(button))
                found << wanted;
        }
        return found;
    }

    /// Pictures of separators. The bar itself draws neither, so they are loaded when they are first
    /// asked for.
    const QPixmap &hSeparatorPixmap() const;
    const QPixmap &vSeparatorPixmap() const;

    QWidget *centralWidget = nullptr;
    QPointer<QWidget> refParent; ///< by which the bar is placed
    Qt::ToolBarArea area = Qt::NoToolBarArea;
    bool isGrid = false;
    bool gridRowMajor = true;
    bool centered = true;
    int gridSize = 0;
    QPoint offset {100, 0};
    QMap<QString, QList<ToolButton *>> buttonsByGroup; ///< each list in the order of adding
    QMap<QString, QWidget *> panels;                   ///< by the name of the group
    QMargins mainContentMargins;
    QMargins groupContentMargins {1, 1, 1, 1};
    QBoxLayout *mainLayout = nullptr; ///< of the central widget; null while the side is not known
    QColor backColor;
    QColor groupBackColor;
    QSize iconSize {24, 24};
    QSize buttonSize {36, 36};
    int buttonSpacing = 1;
    int groupSpacing = 10;
    Qt::ToolButtonStyle toolButtonStyle = Qt::ToolButtonIconOnly;
    ToolBar::EToolBarRoundCorner mainRoundCorner = ToolBar::EToolBarRoundCorner::NoRoundCorners;
    ToolBar::EToolBarRoundCorner groupRoundCorner = ToolBar::EToolBarRoundCorner::NoRoundCorners;
    int cornerRadius = 4;
    QPainterPath backgroundPath;
    QMap<QWidget *, QPainterPath> panelPaths; ///< in coordinates of the bar
    SPopupDefaults defaultMenu;
    SPopupDefaults defaultTooltip;
    QTimer *autoPositionTimer = nullptr;
    int autoPositionInterval = 100;
    int reservedMargin = 15;
    bool autoPositionEnabled = false;
    bool hideOnButtonClick = false;
    bool defaultMenuShadow = true;
    bool inShowMode = true;
    bool keepMenuStateOnHide = true;
    bool keepStateOnClickOutside = false;
    bool borderAroundPanels = true;
    bool delayRelocationOnResize = false;
    QStateMachine stateMachine;
    QState *initialState = nullptr;
    QString tooltipGroupName;
    QColor separatorColor;
    QVector<QRect> separatorRects;                     ///< in coordinates of the bar
    QPointer<ToolButton> parentButton;                 ///< whose menu the bar is
    QPointer<ToolButtonWithWidgetMenu> activeButton;   ///< whose popup another button shows
    QGraphicsDropShadowEffect *shadowEffect = nullptr; ///< owned by the bar
    int borderWidth = 1;
    QColor borderColor;
    QMap<QString, QList<QPointer<QToolButton>>> exclusiveGroups;
    QHash<ToolButton *, int> buttonRanks;
    QTimer *resizeTimer = nullptr;

protected:
    ToolBar *q_ptr = nullptr;

private:
    friend class ToolBar;
    friend class ToolButton;
    friend class ToolButtonPrivate;
    friend class ToolButtonWithButtonMenu;
    friend class ToolButtonWithButtonMenuPrivate;

    /// What assistive tools see of a bar. One that is a menu has the name of its button.
    static QAccessibleInterface *makeAccessible(const QString &className, QObject *object);
    void initialize(QWidget *parent);
    void makeCentralWidget();
    void makeMainLayout();
    void updateMinimumSizes() const;
    QWidget *makePanel(const QString &groupName);
    QWidget *takePanel(const QString &groupName);
    void putPanel(QWidget *panel, int rank);
    int rankOf(const QString &groupName) const;
    void addPlaceholders(QGridLayout *grid, const ToolButton *button, QWidget *panel) const;
    void placeInGrid(QGridLayout *grid, ToolButton *button, int position) const;
    void placeInBox(QBoxLayout *box, ToolButton *button, int rank) const;
    QWidget *parentForNewButton(const QString &groupName);
    void setRank(ToolButton *button, int rank);
    void forget(ToolButton *button);
    void forEachButton(const std::function<void(ToolButton &button)> &visit) const;
    void forEachLayout(const std::function<void(QWidget &panel, QLayout &layout)> &visit) const;

    void applyMenuDefaults(ToolButton *button) const;
    void applySizes(ToolButton *button);
    ToolButton *buttonOfAction(QAction *action) const;
    QString groupOf(ToolButton *button) const;
    static void takeFromLayout(ToolButton *button, QWidget *panel);
    void removeButton(ToolButton *button);
    void closeMenuOf(ToolButton *button) const;
    void hideAfterClick(const ToolButtonWithMenu *clicked);
    static void hideMenus(const QList<QPointer<ToolButtonWithMenu>> &buttons, bool keepState,
                          const ToolButton *except);
    void reopenMenus();
    void onResized(QObject *watched);
    static ToolBar *subMenuOf(const ToolButton &button);
    QList<QPointer<ToolButtonWithMenu>> menuButtons(bool includeSubMenus) const;

    ToolBar *barAbove() const;
    bool standsOn(const ToolBar *bar) const;
    void unlockButtons() const;
    void setFullIcon(ToolButton *button, const QAction *action, const QIcon &icon) const;
    static std::vector<std::shared_ptr<CommandBase>> commandsOf(const CommandGroup &group);
    bool makeSubToolBar(CommandGroup &group, CommandGroup &parentGroup);
    static void fillSubToolBar(CommandGroup &group);
    static void connectToOwner(ToolButton &owner, CommandBase &command, ToolButton *button);
    static void disconnectFromOwner(const QAction &action, const ToolButton &owner);
    void closeActiveMenu(const ToolButton *clicked) const;
    void dismissWidgetMenu(ToolButtonWithWidgetMenu *leaf);

    ToolButton *addCommandButton(CommandBase *command, int rank);
    void setCommandId(ToolButton &button, const QString &id);
    void noteProperty(ToolButton *button);
    void noteCommandId(ToolButton *button, const QString &id);
    void forgetCommandId(ToolButton *button);
    ToolButton *firstOf(const QList<ToolButton *> &wanted) const;
    ToolButton *buttonOfCommand(const QString &commandId, bool includeSubMenus) const;

    void preparePanelPaths();
    void prepareSeparators();
    void addSeparator(bool afterHorizontally, const ToolButton &button, const QRect &panel);
    void addSeparatorsOfBox(const QList<ToolButton *> &buttons, const QRect &panel);
    void addSeparatorsOfGrid(const QList<ToolButton *> &buttons, const QRect &panel, int perLine,
                             int lines);
    void paintPlates(QPainter &painter, const QRect &exposed) const;
    void paintVisibleBackground(QPainter &painter, const QRect &exposed) const;
    void paintSeparators(QPainter &painter, const QRect &exposed) const;
    void paintBorder(QPainter &painter, const QRect &exposed) const;

    void slide(bool show, const QEasingCurve &curve);
    void cutOutLayer();

    bool isSliding = false;
    bool hasClosedMenus = false; ///< before it is hidden
    bool isLockedBySlide = false;
    const QPixmap &loaded(QPixmap &pixmap, const QString &file) const;

    mutable QPixmap hSeparator;
    mutable QPixmap vSeparator;
    QPointer<QWidget> coming; ///< a panel for the button that is being made
    bool mayHaveMenus = false;
    const ToolButton *notedBefore = nullptr; ///< whose id is being written to its property
    bool pathsAreStale = true;
    bool separatorsAreStale = true;
    // By rank and address: who comes next is asked for each button that is added.
    std::set<std::pair<int, ToolButton *>> ranked;
    // The buttons that carry an id, and which one each carries: a bar is asked for each command.
    QMultiHash<QString, ToolButton *> buttonsOfId;
    QHash<ToolButton *, QString> commandIdOf;
    Internal::ButtonPlates plates;
};

} // namespace Vela::UiBase

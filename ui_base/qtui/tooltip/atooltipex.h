// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

#include <QFrame>
#include <QMetaType>
#include <QSize>
#include <QString>

#include <memory>

class QStackedWidget;

namespace Vela::UiBase {

class ATooltipExPrivate;

/// The frame of an extended content: texts of its own and an advanced part, a stack of pages that
/// hold text, a picture or any widget. The part opens on demand, and each showing turns to the next
/// page, so that a user learns one thing at a time.
///
/// Take TooltipEx for the card of a tooltip and InfoDialog for a panel beneath a flyout; both are
/// made by TooltipExFactory. Derive from this for another look: the form and the place of the stack
/// are the subclass's. ConnectTo() links a card to the tooltip that it is the content of.
///
/// Three dynamic properties on a page tell what it is: "widget_type" (EWidgetType), how its width
/// is handled; "keyword" (QString); "original_size" (QSize), its size when it became a page. The
/// factory writes them.
///
/// The card owns its stack and the stack its pages. It takes no focus when the factory has made it.
/// Widths are logical pixels. Main thread only.
///
/// docs/tooltips.md shows it.
class LUMO_UI_BASE_EXPORT ATooltipEx : public QFrame
{
    Q_OBJECT

public:
    /// What a page is, and so how it takes a width.
    enum class EWidgetType : int {
        Text = 0,    ///< a label of 12 pixels Arial, wrapped at the width and as high as its text
        Picture = 1, ///< a label with a picture, made smaller in its proportions, never larger
        Custom = 2   ///< gets the width and is as high as it likes
    };

    /// When the advanced part is open.
    enum class EWidgetExVisibility : int {
        ExHidden = 0,     ///< closed at first, opens on demand
        ExShown = 1,      ///< open at first, can be closed
        ExAlwaysShown = 2 ///< open, a click does not close it
    };

    /// A card with an empty advanced part.
    explicit ATooltipEx(QWidget *parent);
    ~ATooltipEx() override;

    /// Lets @p tooltip choose the pages of this card by its SetTooltipIndex() and
    /// SetTooltipKeyword(). Once is enough; anything but an ATooltipObject is ignored.
    void ConnectTo(QObject *tooltip);
    /// Undoes ConnectTo().
    void DisconnectFrom(QObject *tooltip);

    /// The room that the text of a label takes when it is wrapped at @p width.
    /// @return (0,0) for null and for anything but a label
    static QSize FindTextLabelSize(QWidget *label, int width);

    /// Gives a page the width that the card has for it when it is open, by the page's type. Does
    /// nothing for null and in a card without pages.
    void SetAdvancedWidgetWidth(QWidget *page);
    /// Sets the width of the open card and of all its pages.
    /// @param width ignored unless it is above 0
    void SetMaxWidthForAllAdvancedWidgets(int width);

    /// The pages, or null. The reference is good as long as the card lives.
    QStackedWidget *const &AdvancedWidgets() const;

    /// How much of the width of the open card is not the pages'.
    virtual int GetAdvancedWidgetMargins() const = 0;
    /// Fills the card. May be called again for other texts and another width.
    /// @param title plain or rich text
    /// @param content plain or rich text
    /// @param advanced the pages, taken over when it has any; null for none. Only the first stack
    ///                 counts: another one stays the caller's
    /// @param alwaysMaxWidth whether the card has @p maxWidth also while the part is closed; its
    ///                       width at construction if not
    /// @param maxWidth width of the open card; one that no widget can have becomes the nearest that
    ///                 one can, and leaves the pages without room
    /// @param visibility when the part is open
    virtual void SetParams(const QString &title, const QString &content, QStackedWidget *advanced,
                           bool alwaysMaxWidth, int maxWidth, EWidgetExVisibility visibility) = 0;
    /// Sets the height of the closed card. Called when the part closes while the card is up.
    /// @param width the width that the card has then
    virtual void SetHeightOnAdvancedWidgetHidden(int width) = 0;
    /// Whether the advanced part is open; false while the card itself is hidden, unless a subclass
    /// knows better.
    virtual bool IsAdvancedWidgetVisible() const = 0;

protected:
    /// For subclasses with a private class of their own.
    /// @param dd taken over and deleted by the card
    ATooltipEx(ATooltipExPrivate &dd, QWidget *parent);

    /// Shows or hides the part, and fits it to the current page.
    virtual void OnAdvancedWidgetVisibilityChange(bool visible) = 0;
    /// Puts the stack in its place in the form.
    virtual void AddWidgetToLayout(QWidget *stack) = 0;

    /// Takes over the pages, when they are the first. A stack without a page is not shown until it
    /// is asked to, but belongs to the card too.
    void SetAdvancedWidget(QStackedWidget *stack);
    /// Opens or closes the part and fits the card. Does nothing in a card without pages.
    void SetAdvancedWidgetVisibility(bool visible);
    /// Fits the card to the current page when the pages are visible.
    void UpdateContent();

    /// Turns to the next page, when there are several, and opens or closes the part as at first.
    void showEvent(QShowEvent *event) override;
    /// Has the outline of a card that floats by itself follow its size, where nothing blends windows.
    void resizeEvent(QResizeEvent *event) override;
    /// Closes the part.
    void hideEvent(QHideEvent *event) override;
    /// Keeps F1 to itself: the card promises help, which the application gives.
    void keyReleaseEvent(QKeyEvent *event) override;
    /// Opens or closes the part, unless that is always open.
    void mousePressEvent(QMouseEvent *event) override;

    /// The state of the card; what subclasses cast to their own.
    const std::unique_ptr<ATooltipExPrivate> d_ptr;

protected Q_SLOTS:
    /// Shows the page of an index. One beyond the last is ignored, and so is a negative one.
    void OnIndexChanged(int index);
    /// Shows the first page when @p keyword equals the property "keyword" of the stack, whatever
    /// the case; a stack without that property has an empty one. The keywords of the pages are not
    /// looked at: choose pages by OnIndexChanged().
    void OnKeywordChanged(QString keyword);

private:
    Q_DECLARE_PRIVATE(ATooltipEx)
    Q_DISABLE_COPY(ATooltipEx)
};

} // namespace Vela::UiBase

Q_DECLARE_METATYPE(Vela::UiBase::ATooltipEx::EWidgetType)
Q_DECLARE_METATYPE(Vela::UiBase::ATooltipEx::EWidgetExVisibility)

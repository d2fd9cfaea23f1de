// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QHBoxLayout>
#include <QMap>
#include <QPointer>
#include <QVarLengthArray>
#include <QVBoxLayout>

class QAbstractButton;

namespace Vela::UiBase::Internal {

/// Buttons of fixed size in a line. Qt's box layout measures and places all its items again whenever
/// one is added, which makes the filling of a long bar quadratic; this one keeps running sums and
/// places only what is new. As soon as something else is in the line, such as a widget without a fixed
/// size or more room than the buttons need, it leaves all to the box layout that it is.
class ButtonLine
{
public:
    virtual ~ButtonLine();

    /// The line that lays out @p panel; null when it is laid out in another way.
    static ButtonLine *of(const QWidget *panel);

    /// Puts @p button, a child of the panel, in front of the item @p index, or at the end for -1, and
    /// shows it if the panel is visible.
    virtual void insertButton(int index, QAbstractButton *button) = 0;
    /// Takes @p button out of the line and leaves it where it stands.
    virtual void removeButton(QAbstractButton *button) = 0;

    /// While it lives, changes of widgets that are no items of the line do not make the line measure
    /// its items again: a button that is being set up is a child of the panel already.
    class SettingUp
    {
    public:
        explicit SettingUp(ButtonLine *line);
        ~SettingUp();
        Q_DISABLE_COPY(SettingUp)

    private:
        ButtonLine *const m_line;
    };

    /// While the sizes of the panels around are being worked out, buttons for which the room is not
    /// the right one yet stay where they are.
    class Resizing
    {
    public:
        explicit Resizing(const QMap<QString, QWidget *> &panels);
        ~Resizing();
        Q_DISABLE_COPY(Resizing)

    private:
        QVarLengthArray<QPointer<QWidget>, 8> m_panels;
    };

protected:
    virtual void place() = 0;

    struct SSum
    {
        int length = 0; // along the line, without spacing
        int thickness = 0;
        bool isUniform = true; // all have this thickness
        int count = 0;         // of items that are not hidden
        bool isSimple = true;  // nothing but buttons of fixed size
        Qt::Orientations expanding;
    };

    int setups = 0;
    int resizings = 0;
    bool isWaiting = false; // to be placed when the sizes are known
};

template<typename Box>
class ButtonLineOf final : public Box, public ButtonLine
{
public:
    ButtonLineOf();

    void insertButton(int index, QAbstractButton *button) override;
    void removeButton(QAbstractButton *button) override;

    QSize sizeHint() const override;
    QSize minimumSize() const override;
    QSize maximumSize() const override;
    Qt::Orientations expandingDirections() const override;
    bool hasHeightForWidth() const override;
    void invalidate() override;
    void setGeometry(const QRect &rect) override;
    QRect geometry() const override;

protected:
    void place() override;

private:
    const ButtonLineOf &upToDate() const;
    bool isHorizontal() const;
    const SSum &sum() const;
    void addToSum(const QLayoutItem &item, bool isSeen) const;
    bool takeFromSum(const QLayoutItem &item) const;
    QSize totalSize() const;
    bool fits(const QRect &room) const;
    void placeAnew(QWidget &panel);
    void placeFrom(int index, const QRect &room);
    int endOfItemBefore(int index, const QRect &room) const;

    mutable SSum m_sum;
    mutable bool m_isSumValid = true;
    mutable bool m_isBoxStale = false;
    int m_firstMisplaced = 0;
    bool m_isInPlace = false;
    QRect m_geometry;
    QRect m_placedIn;
};

extern template class ButtonLineOf<QHBoxLayout>;
extern template class ButtonLineOf<QVBoxLayout>;

using ButtonRow = ButtonLineOf<QHBoxLayout>;
using ButtonColumn = ButtonLineOf<QVBoxLayout>;

} // namespace Vela::UiBase::Internal

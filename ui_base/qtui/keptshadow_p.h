// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QFont>
#include <QGraphicsDropShadowEffect>
#include <QImage>
#include <QPoint>
#include <QPointer>
#include <QPointF>
#include <QPushButton>
#include <QStyleOptionButton>

#include <vector>

class QRegion;

namespace Vela::UiBase::Internal {

/// The ratio of pixels of the device to those of a painter that neither turns nor bends anything; 0
/// if that is not a whole number.
int wholeRatio(const QPainter &painter);

/// Parts of a picture, each with its place.
class PictureParts
{
public:
    PictureParts() = default;
    /// @param picture has its upper left corner at @p origin
    /// @param region what to keep of it
    PictureParts(const QImage &picture, const QPoint &origin, const QRegion &region);

    void draw(QPainter &painter) const;

private:
    struct SPart
    {
        QPoint place;
        QImage picture;
    };
    std::vector<SPart> m_parts;
};

/// A drop shadow that is blurred once, and drawn again for as long as its widget covers the same
/// pixels. What is seen is that of the base class to the last bit: the blurring takes most of the time
/// in which a small window is painted, while what casts a shadow hardly ever changes its shape.
class KeptShadow : public QGraphicsDropShadowEffect
{
public:
    using QGraphicsDropShadowEffect::QGraphicsDropShadowEffect;

protected:
    /// How a shadow looks beside its shape.
    struct SLook
    {
        qreal radius = 0;
        QPointF offset;
        QColor color;

        bool operator==(const SLook &other) const
        {
            return radius == other.radius && offset == other.offset && color == other.color;
        }
    };

    void draw(QPainter *painter) override;

    /// Draws the shadow that was cast last, and the source above it, which covers what it did then.
    /// @param widget the source
    void drawAgain(QPainter *painter, QWidget &widget);

    SLook look() const { return {blurRadius(), offset(), color()}; }
    /// Whether nothing of it would be seen.
    bool isNone() const { return blurRadius() <= 0 && offset().isNull(); }
    /// The shadow of what a picture shows, which leaves room for it around.
    QImage shadowOf(const QImage &caster) const;
    /// The picture that has cast the shadow.
    const QImage &caster() const { return m_caster; }
    /// Another one each time a shadow is cast.
    int generation() const { return m_generation; }

private:
    void cutAround(const QSize &size, const QPoint &corner);

    QImage m_caster;
    SLook m_look;
    QImage m_shadow;
    int m_generation = 0;
    // What is seen of the shadow around the source, and of which generation.
    PictureParts m_around;
    int m_generationAround = 0;
};

/// The shadow of a button. As long as all is as it was that decides how the button looks, it covers
/// what it covered before. Then there is no need of a picture of it, and it is painted where it stands.
class ButtonShadow : public KeptShadow
{
public:
    /// @param button gets the effect from the caller
    explicit ButtonShadow(QPushButton *button);

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void draw(QPainter *painter) override;

private:
    /// What the style paints the button from.
    struct SSubject
    {
        QStyleOptionButton option;
        qint64 palette = 0;
        qint64 icon = 0;
        QFont font;
        const QStyle *style = nullptr;
        int ratio = 0;
        SLook look;

        bool operator==(const SSubject &other) const;
    };

    enum class EPainting {
        Unknown,
        AsInPicture,
        ByGround ///< differs with what lies below
    };

    struct SKnown
    {
        SSubject subject;
        EPainting painting = EPainting::Unknown;
    };

    bool canDrawAgain(const QPainter &painter) const;
    SSubject subject(const QPainter &painter) const;
    SKnown *find(const SSubject &subject);
    bool isPaintedAsInPicture() const;
    void learn(const SSubject &subject);
    void followGeneration();

    const QPointer<QPushButton> m_button;
    // What has the shadow of this generation.
    std::vector<SKnown> m_known;
    int m_generationOfKnown = 0;
};

} // namespace Vela::UiBase::Internal

// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "image/imageplacement.h"

#include <gtest/gtest.h>

using Workbench::ImagePlacement;

namespace {

ImagePlacement placementOf(const QSize &image, const QSize &viewport)
{
    ImagePlacement placement;
    placement.setViewport(viewport);
    placement.setImage(image);
    return placement;
}

/// The point of the image that lies at @p position of the view.
QPointF pointAt(const ImagePlacement &placement, const QPointF &position)
{
    return (position - placement.place().topLeft()) / placement.scale();
}

} // namespace

TEST(ImagePlacement, aLargeImageIsFittedAtFirst)
{
    const ImagePlacement placement = placementOf({2000, 500}, {1000, 700});
    EXPECT_TRUE(placement.isFitted());
    EXPECT_EQ(placement.place(), QRectF(0, 225, 1000, 250));
    EXPECT_FALSE(placement.canZoomOut());
    EXPECT_TRUE(placement.canZoomIn());
}

TEST(ImagePlacement, aHighImageIsFittedByItsHeight)
{
    EXPECT_EQ(placementOf({500, 1400}, {1000, 700}).place(), QRectF(375, 0, 250, 700));
}

TEST(ImagePlacement, aSmallImageStandsInTheCentreAsLargeAsItIs)
{
    const ImagePlacement placement = placementOf({100, 50}, {1000, 701});
    EXPECT_EQ(placement.scale(), 1.0);
    // The corner lies between two pixels, or every pixel of the image would be smeared over two.
    EXPECT_EQ(placement.place(), QRectF(450, 326, 100, 50));
}

TEST(ImagePlacement, aFittedImageFollowsTheView)
{
    ImagePlacement placement = placementOf({2000, 500}, {1000, 700});
    placement.setViewport({500, 700});
    EXPECT_EQ(placement.scale(), 0.25);
    placement.setViewport({4000, 700});
    EXPECT_EQ(placement.scale(), 1.0);
}

TEST(ImagePlacement, anotherImageIsFittedAnew)
{
    ImagePlacement placement = placementOf({2000, 500}, {1000, 700});
    placement.zoomAt({10, 10}, 8.0);
    placement.setImage({4000, 500});
    EXPECT_TRUE(placement.isFitted());
    EXPECT_EQ(placement.scale(), 0.25);
}

TEST(ImagePlacement, whatLiesUnderThePointerStaysThere)
{
    ImagePlacement placement = placementOf({2000, 1400}, {1000, 700});
    const QPointF pointer(700, 200);
    const QPointF point = pointAt(placement, pointer);
    for (const double factor : {1.15, 4.0, 1.5, 0.8}) {
        placement.zoomAt(pointer, factor);
        const QPointF off = pointAt(placement, pointer) - point;
        EXPECT_LE(off.manhattanLength() * placement.scale(), 1.5) << factor;
    }
    EXPECT_FALSE(placement.isFitted());
}

TEST(ImagePlacement, theScaleHasLimits)
{
    ImagePlacement placement = placementOf({2000, 1400}, {1000, 700});
    placement.zoomAt({0, 0}, 1e6);
    EXPECT_EQ(placement.scale(), ImagePlacement::largestScale());
    EXPECT_FALSE(placement.canZoomIn());
    placement.zoomAt({0, 0}, 1e-9);
    EXPECT_EQ(placement.scale(), 0.5);
    EXPECT_FALSE(placement.canZoomOut());
    EXPECT_TRUE(placement.isFitted());
}

TEST(ImagePlacement, zoomingInOnAFittedImageUnfitsIt)
{
    ImagePlacement placement = placementOf({2000, 1400}, {1000, 700});
    placement.zoomAt({500, 350}, 2.0);
    EXPECT_FALSE(placement.isFitted());
    placement.setViewport({800, 600});
    EXPECT_EQ(placement.scale(), 1.0);
}

TEST(ImagePlacement, theOriginalSizeIsAPixelForAPixel)
{
    ImagePlacement placement = placementOf({2000, 1400}, {1000, 700});
    placement.showOriginalSize();
    EXPECT_EQ(placement.scale(), 1.0);
    EXPECT_EQ(placement.place(), QRectF(-500, -350, 2000, 1400));
    placement.fit();
    EXPECT_EQ(placement.scale(), 0.5);
}

TEST(ImagePlacement, aDragEndsAtTheEdges)
{
    ImagePlacement placement = placementOf({2000, 1400}, {1000, 700});
    placement.showOriginalSize();
    placement.pan({-30, 20});
    EXPECT_EQ(placement.place().topLeft(), QPointF(-530, -330));
    placement.pan({-5000, 5000});
    EXPECT_EQ(placement.place().topLeft(), QPointF(-1000, 0));
    // What was dragged too far comes back at once.
    placement.pan({10, -10});
    EXPECT_EQ(placement.place().topLeft(), QPointF(-990, -10));
}

TEST(ImagePlacement, aFittedImageCannotBeDragged)
{
    ImagePlacement placement = placementOf({2000, 500}, {1000, 700});
    placement.pan({40, 40});
    EXPECT_EQ(placement.place(), QRectF(0, 225, 1000, 250));
}

TEST(ImagePlacement, aLargerViewLeavesNoGap)
{
    ImagePlacement placement = placementOf({2000, 1400}, {1000, 700});
    placement.showOriginalSize();
    placement.pan({-5000, -5000});
    placement.setViewport({1500, 700});
    EXPECT_EQ(placement.place().right(), 1500);
    placement.setViewport({3000, 2000});
    EXPECT_EQ(placement.place(), QRectF(500, 300, 2000, 1400));
}

TEST(ImagePlacement, nothingIsShownOfNoImage)
{
    ImagePlacement placement = placementOf({}, {1000, 700});
    placement.zoomAt({3, 3}, 2.0);
    placement.pan({5, 5});
    EXPECT_FALSE(placement.canZoomIn());
    EXPECT_FALSE(placement.canZoomOut());
    EXPECT_TRUE(placement.place().isEmpty());
}

TEST(ImagePlacement, aViewWithoutPixelsKeepsTheImage)
{
    ImagePlacement placement = placementOf({200, 100}, {});
    placement.zoomAt({0, 0}, 2.0);
    placement.setViewport({400, 400});
    EXPECT_EQ(placement.place().size(), QSizeF(400, 200));
}

// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "view/camerarig.h"

#include "testmeshes.h"
#include "view/facepicker.h"

#include <gtest/gtest.h>

using namespace Workbench;

namespace {

/// A rig with a picture of 600 by 400 that looks at a mesh.
class RigTest : public testing::Test
{
protected:
    void SetUp() override
    {
        rig.setViewport({600, 400});
        look(TestMeshes::tetrahedron());
    }

    void look(const Mesh &mesh)
    {
        Camera camera;
        camera.frame(boundsOf(mesh));
        rig.setCamera(camera);
        picker.setMesh(mesh);
    }

    QPointF placeOf(const QVector3D &point) const { return rig.toPicture().map(point).toPointF(); }

    CameraRig rig;
    FacePicker picker;
};

void expectNear(const QPointF &one, const QPointF &other)
{
    EXPECT_NEAR(one.x(), other.x(), 0.05);
    EXPECT_NEAR(one.y(), other.y(), 0.05);
}

} // namespace

TEST_F(RigTest, theMiddleOfTheMeshIsInTheMiddleOfThePicture)
{
    expectNear(placeOf({0, 0, 0}), {300, 200});
}

TEST_F(RigTest, upIsUp)
{
    EXPECT_LT(placeOf({0, 1, 0}).y(), 150.0);
    EXPECT_GT(placeOf({1, 0, 0}).x(), 350.0);
}

TEST_F(RigTest, aPanMovesTheMeshWithThePointer)
{
    rig.pan({30, -20});
    expectNear(placeOf({0, 0, 0}), {330, 180});
}

TEST_F(RigTest, aDragToTheRightTurnsTheNearSideToTheRight)
{
    const QVector3D near = rig.camera().rotation().inverted().map(QVector3D(0, 0, 1));
    rig.orbit({25, 0});
    EXPECT_GT(placeOf(near).x(), 305.0);
    rig.orbit({-25, 25});
    EXPECT_GT(placeOf(near).y(), 205.0);
}

TEST_F(RigTest, theMeshIsNeverTurnedOverThePoles)
{
    rig.orbit({0, 100'000});
    EXPECT_LT(placeOf({0, 0, -1}).y(), placeOf({0, 0, 1}).y());
}

TEST_F(RigTest, aZoomKeepsWhatIsUnderThePointer)
{
    // In the plane of the target, seen to the right of the middle.
    const QVector3D point = rig.camera().rotation().inverted().map(QVector3D(0.5F, 0.3F, 0));
    const QPointF before = placeOf(point);
    rig.zoomAt(before, 0.5F);
    expectNear(placeOf(point), before);
    EXPECT_FLOAT_EQ(rig.camera().zoomFactor(), 0.5F);
}

TEST_F(RigTest, theZoomHasLimits)
{
    rig.zoomAt({300, 200}, 1e-9F);
    EXPECT_GT(rig.camera().zoomFactor(), 0.001F);
    rig.zoomAt({300, 200}, 1e9F);
    EXPECT_LT(rig.camera().zoomFactor(), 100.0F);
    expectNear(placeOf({0, 0, 0}), {300, 200});
}

TEST_F(RigTest, aRayGoesThroughWhatIsSeenThere)
{
    const QVector3D point(0.3F, -0.2F, 0.4F);
    const Ray ray = rig.rayAt(placeOf(point));
    EXPECT_NEAR(point.distanceToLine(ray.origin, ray.direction.normalized()), 0.0F, 1e-3F);
}

TEST_F(RigTest, framingKeepsTheDirection)
{
    rig.orbit({70, 15});
    rig.pan({100, 100});
    Camera camera = rig.camera();
    camera.frame(boundsOf(TestMeshes::tetrahedron()));
    EXPECT_EQ(camera.rotation(), rig.camera().rotation());
    rig.setCamera(camera);
    expectNear(placeOf({0, 0, 0}), {300, 200});
}

TEST_F(RigTest, withoutAPictureNothingMovesAndNothingIsPicked)
{
    rig.setViewport({});
    rig.pan({10, 10});
    rig.zoomAt({0, 0}, 0.5F);
    EXPECT_FLOAT_EQ(rig.camera().zoomFactor(), 1.0F);
    EXPECT_EQ(picker.faceAt(rig, {0, 0}), -1);
    EXPECT_TRUE(picker.facesIn(rig, {0, 0, 600, 400}).isEmpty());
}

TEST_F(RigTest, picksTheFaceUnderThePointer)
{
    const Mesh mesh = TestMeshes::grid(6);
    look(mesh);
    for (const int face : {0, 13, 71})
        EXPECT_EQ(picker.faceAt(rig, placeOf(centerOf(mesh, mesh.faces[face]))), face);
    EXPECT_EQ(picker.faceAt(rig, {1, 1}), -1);
}

TEST_F(RigTest, aBandHoldsTheFacesWhoseMiddleIsInsideIt)
{
    const Mesh mesh = TestMeshes::grid(6);
    look(mesh);
    EXPECT_EQ(picker.facesIn(rig, {0, 0, 600, 400}).size(), mesh.faces.size());
    const QPointF place = placeOf(centerOf(mesh, mesh.faces[13]));
    EXPECT_EQ(picker.facesIn(rig, QRectF(place - QPointF(2, 2), QSizeF(4, 4))), QVector<int> {13});
    EXPECT_TRUE(picker.facesIn(rig, {0, 0, 5, 5}).isEmpty());
}

TEST_F(RigTest, whatIsHiddenIsNotSelected)
{
    const QVector<int> seen = picker.facesIn(rig, {0, 0, 600, 400});
    EXPECT_FALSE(seen.isEmpty());
    EXPECT_LT(seen.size(), 4);
}

TEST_F(RigTest, anEmptyMeshHasNothingToPick)
{
    picker.setMesh({});
    EXPECT_EQ(picker.faceAt(rig, {300, 200}), -1);
    EXPECT_TRUE(picker.facesIn(rig, {0, 0, 600, 400}).isEmpty());
}

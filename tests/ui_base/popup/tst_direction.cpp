// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/EDirection>

#include <gtest/gtest.h>

#include <QObject>
#include <QVariant>

using namespace Vela::UiBase;

namespace {

EDirection readBack(const QVariant &value)
{
    QObject object;
    object.setProperty("direction_to", value);
    return DirectionProperty(&object, "direction_to");
}

} // namespace

TEST(Direction, enumeratorsStandInOrder)
{
    EXPECT_EQ(int(EDirection::Left), 0);
    EXPECT_EQ(int(EDirection::Top), 1);
    EXPECT_EQ(int(EDirection::Right), 2);
    EXPECT_EQ(int(EDirection::Bottom), 3);
    EXPECT_EQ(int(EDirection::NoDirection), 4);
    EXPECT_EQ(int(EWidgetsAlign::AlignStart), 0);
    EXPECT_EQ(int(EWidgetsAlign::AlignCenter), 1);
    EXPECT_EQ(int(EWidgetsAlign::AlignEnd), 2);
}

TEST(Direction, readingRegistersTheMetatype)
{
    DirectionProperty(nullptr, nullptr);
    // Asking for qMetaTypeId() would register it here.
    EXPECT_NE(QMetaType::type("Vela::UiBase::EDirection"), QMetaType::UnknownType);
}

TEST(Direction, propertyHoldsItsRealType)
{
    const QVariant value = QVariant::fromValue(EDirection::Bottom);
    EXPECT_STREQ(value.typeName(), "Vela::UiBase::EDirection");
    EXPECT_EQ(readBack(value), EDirection::Bottom);
}

TEST(Direction, otherTypesAreConverted)
{
    EXPECT_EQ(readBack(2), EDirection::Right);
    EXPECT_EQ(readBack(3U), EDirection::Bottom);
    EXPECT_EQ(readBack(1.0), EDirection::Top);
    EXPECT_EQ(readBack(QStringLiteral("4")), EDirection::NoDirection);
    EXPECT_EQ(readBack(QVariant::fromValue(EWidgetsAlign::AlignEnd)), EDirection::Right);
    EXPECT_EQ(readBack(77), EDirection(77));
}

TEST(Direction, whatDoesNotConvertReadsAsLeft)
{
    EXPECT_EQ(readBack(QStringLiteral("right")), EDirection::Left);
    EXPECT_EQ(readBack(QVariantList {2}), EDirection::Left);
    EXPECT_EQ(readBack(QVariant::fromValue<QObject *>(nullptr)), EDirection::Left);
    EXPECT_EQ(readBack(QVariant()), EDirection::Left);
}

TEST(Direction, nothingHasNoDirection)
{
    EXPECT_EQ(DirectionProperty(nullptr, "direction_to"), EDirection::NoDirection);
}

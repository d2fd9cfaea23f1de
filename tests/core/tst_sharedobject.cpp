// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "core/sharedobject.h"

#include "support/failingnew.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>

namespace {

class Tool : public Tessel::SharedObject<Tool>
{
public:
    explicit Tool(bool &destroyed)
        : m_destroyed(destroyed)
    { }
    ~Tool() override { m_destroyed = true; }

private:
    bool &m_destroyed;
};

TEST(SharedObject, anOwnedObjectSharesItsOwners)
{
    bool destroyed = false;
    auto owner = std::make_shared<Tool>(destroyed);
    const std::shared_ptr<Tool> again = owner->shared_from_this();
    EXPECT_EQ(again, owner);
    EXPECT_EQ(owner.use_count(), 2);
}

TEST(SharedObject, anUnownedObjectIsAdoptedAndDiesWithTheLastCopy)
{
    bool destroyed = false;
    auto *tool = new Tool(destroyed);
    std::shared_ptr<Tool> first = tool->shared_from_this();
    EXPECT_EQ(first.get(), tool);
    std::shared_ptr<Tool> second = tool->shared_from_this();
    EXPECT_EQ(first.use_count(), 2);
    first.reset();
    EXPECT_FALSE(destroyed);
    second.reset();
    EXPECT_TRUE(destroyed);
}

TEST(SharedObject, anObjectThatCannotBeAdoptedIsDeleted)
{
    bool destroyed = false;
    auto *tool = new Tool(destroyed);
    Lumo::Test::FailingNew fault(0);
    EXPECT_THROW(tool->shared_from_this(), std::bad_alloc);
    fault.disarm();
    EXPECT_TRUE(destroyed);
}

class Animal : public Tessel::SharedObject<Animal>
{ };
class Machine : public Tessel::SharedObject<Machine>
{ };
class Robot : public Animal, public Machine
{ };

TEST(SharedObject, severalBasesShareOneOwnerCount)
{
    auto *robot = new Robot;
    const std::shared_ptr<Animal> animal = robot->Animal::shared_from_this();
    const std::shared_ptr<Machine> machine = robot->Machine::shared_from_this();
    EXPECT_EQ(animal.use_count(), 2);
    EXPECT_EQ(machine.use_count(), 2);
    EXPECT_EQ(dynamic_cast<Robot *>(animal.get()), robot);
    EXPECT_EQ(dynamic_cast<Robot *>(machine.get()), robot);
}

TEST(SharedObject, anObjectThatIsBeingDestroyedIsNotAdoptedAgain)
{
    class AsksAtItsEnd : public Tessel::SharedObject<AsksAtItsEnd>
    {
    public:
        explicit AsksAtItsEnd(bool &to)
            : gotNull(to)
        { }
        ~AsksAtItsEnd() override { gotNull = shared_from_this() == nullptr; }
        bool &gotNull;
    };
    bool gotNull = false;
    std::make_shared<AsksAtItsEnd>(gotNull).reset();
    EXPECT_TRUE(gotNull);
}

} // namespace

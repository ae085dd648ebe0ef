// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "gameobject.h"

#include <type_traits>

#include <gtest/gtest.h>

namespace {

TEST(GameObjectTest, leavesTheUpdateToItsKinds) {
    EXPECT_TRUE(std::is_abstract_v<GameObject>);
}

TEST(GameObjectTest, holdsNothingOfItsOwn) {
    EXPECT_EQ(sizeof(GameObject), sizeof(void*));
}

} // namespace

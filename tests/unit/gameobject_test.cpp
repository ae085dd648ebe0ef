// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "gameobject.h"

#include <memory>
#include <type_traits>

#include <gtest/gtest.h>

namespace {

class Buoy : public GameObject {
public:
    explicit Buoy(int* deletionCount) : deletions(deletionCount) {}
    ~Buoy() override {
        ++*deletions;
    }
    Buoy(const Buoy&) = delete;
    Buoy& operator=(const Buoy&) = delete;

    void update(SDL_Surface* where) override {
        drawnOnto = where;
    }

    int* deletions;
    SDL_Surface* drawnOnto = nullptr;
};

TEST(GameObjectTest, leavesTheUpdateToItsKinds) {
    EXPECT_TRUE(std::is_abstract_v<GameObject>);
}

TEST(GameObjectTest, holdsNothingOfItsOwn) {
    EXPECT_EQ(sizeof(GameObject), sizeof(void*));
}

TEST(GameObjectTest, isUpdatedThroughTheBase) {
    int deletions = 0;
    Buoy buoy(&deletions);
    SDL_Surface sea = {};
    GameObject& object = buoy;
    object.update(&sea);
    EXPECT_EQ(buoy.drawnOnto, &sea);
}

TEST(GameObjectTest, isDeletedThroughTheBase) {
    int deletions = 0;
    std::unique_ptr<GameObject> object = std::make_unique<Buoy>(&deletions);
    object.reset();
    EXPECT_EQ(deletions, 1);
}

} // namespace

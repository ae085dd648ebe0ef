// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "credits.h"

#include "textscreen.h"

namespace {

class CreditsTest : public TextScreenTest {};

TEST_F(CreditsTest, namesTheMakers) {
    Credits().activate();
    EXPECT_EQ(differenceFrom({
                  {-2, "This program was made by:"},
                  {0, "Brannoc workshop: code"},
                  {1, "Brannoc workshop: pictures"},
                  {2, "Brannoc workshop: music"},
              }),
              "");
}

} // namespace

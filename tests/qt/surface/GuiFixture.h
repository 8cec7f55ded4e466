// Tests that paint: one application object without a display for all of them.
#pragma once

#include <gtest/gtest.h>

#include "qt/surface/Picture.h"

namespace dorvane {

class GuiTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    static int argc = 1;
    static char name[] = "test";
    static char* argv[] = {name, nullptr};
    static const GuiSession session(argc, argv);
  }
};

}  // namespace dorvane

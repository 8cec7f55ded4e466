// What the tests of readers and writers share: a folder and scripted dialogs.
#pragma once

#include <gtest/gtest.h>

#include "files/FileContext.h"
#include "support/FailingFileLayer.h"
#include "support/ScriptedDialogs.h"
#include "support/TemporaryFolder.h"
#include "support/YesDialogs.h"

namespace dorvane {

class FilesTest : public testing::Test {
 protected:
  TemporaryFolder folder_;
  SystemFileLayer system_;
  ScriptedDialogs dialogs_;
  std::int16_t last_data_type_ = 0;
  FileContext context_{system_, dialogs_, last_data_type_};
};

}  // namespace dorvane

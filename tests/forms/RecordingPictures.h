// Pictures that keep what is drawn on them.
#pragma once

#include <string>
#include <vector>

#include "display/RecordingPage.h"
#include "support/Fault.h"
#include "support/Pictures.h"

namespace dorvane {

struct RecordingPictures : Pictures {
  bool writes = true;
  std::vector<std::string> written;
  int copied = 0;
  PictureSize size;
  std::vector<std::string> texts;
  void Keep(const PictureSize& asked, const PaintPage& paint) {
    size = asked;
    RecordingPage page({asked.width_px, asked.height_px, 1});
    paint(page);
    texts = page.Texts();
  }
  void Write(const std::string& path, const PictureSize& asked, const PaintPage& paint) override {
    if (!writes) throw Fault(FaultCode::PermissionDenied);
    written.push_back(path);
    Keep(asked, paint);
  }
  void Copy(const PictureSize& asked, const PaintPage& paint) override {
    ++copied;
    Keep(asked, paint);
  }
};

}  // namespace dorvane

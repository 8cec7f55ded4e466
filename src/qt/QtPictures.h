// Pictures as files and on the desktop's clipboard.
#pragma once

#include "support/FileLayer.h"
#include "support/Pictures.h"

namespace dorvane {

// The clipboard gets a picture in pixels and the same as SVG: whoever pastes takes what it prefers.
class QtPictures : public Pictures {
 public:
  // It outlives the pictures.
  explicit QtPictures(FileLayer& files) : files_(files) {}
  void Write(const std::string& path, const PictureSize& size, const PaintPage& paint) override;
  void Copy(const PictureSize& size, const PaintPage& paint) override;

 private:
  FileLayer& files_;
};

}  // namespace dorvane

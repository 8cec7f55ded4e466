// The port to pictures: written to files, or handed to the clipboard.
#pragma once

#include <string>

#include "support/Page.h"

namespace dorvane {

class Pictures {
 public:
  virtual ~Pictures() = default;
  // PNG, SVG or PDF by the path's extension, replaced in one step. Throws the faults of
  // ReplaceFile, and Fault(BadArgument) for another extension.
  virtual void Write(const std::string& path, const PictureSize& size, const PaintPage& paint) = 0;
  virtual void Copy(const PictureSize& size, const PaintPage& paint) = 0;
};

}  // namespace dorvane

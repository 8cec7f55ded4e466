// Pictures without a window: a page that is painted panel by panel and written as PNG, SVG or PDF.
// Needs no header of the toolkit.
#pragma once

#include <memory>
#include <string>

#include "support/Bytes.h"
#include "support/FileLayer.h"
#include "support/Page.h"

namespace dorvane {

// Fonts need an application object of the toolkit. Makes one without a display, whatever the
// environment says of displays, unless there is one; it lives as long as the session. One session
// at a time, in the main thread.
class GuiSession {
 public:
  // argc and argv as main has them; they have to outlive the session.
  GuiSession(int& argc, char** argv);
  ~GuiSession();
  GuiSession(const GuiSession&) = delete;
  GuiSession& operator=(const GuiSession&) = delete;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

enum class PictureFormat { Png, Svg, Pdf };

// By the path's extension in any case; throws Fault(BadArgument) for any other than png, svg and
// pdf.
PictureFormat PictureFormatOf(const std::string& path);

// The complete file. The page is empty at first: transparent, and white in a PNG. Sides of 1 to
// 20000 pixels after scaling, else Fault(BadArgument). What `paint` throws passes.
ByteVector RenderPicture(PictureFormat format, const PictureSize& size, const PaintPage& paint);

// The complete PDF file of a document, its sheets of this size with a margin of so many pixels on
// each side; the pages painted are what is left. Sides as above. What `paint` throws passes.
ByteVector RenderDocument(const PictureSize& sheet, int margin_px, const PaintPages& paint);

// RenderPicture into a file by its extension, replaced in one step. Throws the faults of both and
// of ReplaceFile.
void WritePicture(FileLayer& files, const std::string& path, const PictureSize& size,
                  const PaintPage& paint);

}  // namespace dorvane

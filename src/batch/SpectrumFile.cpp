#include "batch/SpectrumFile.h"

#include "batch/BatchError.h"
#include "batch/BatchPorts.h"
#include "files/SplitPath.h"

namespace dorvane {

void CheckReadable(FileLayer& files, const std::string& path) {
  const auto info = files.Info(path);
  if (!info) throw BatchError("no such file");
  if (!info->regular) throw BatchError("not a file");
  if (info->size == 0) throw BatchError("the file is empty");
  if (info->size > kLargestFile) throw BatchError("too large for a spectrum");
  if (!CanRead(SplitPath(path).Ext)) {
    throw BatchError("not a kind of file that can be read (" + ReadableKinds() + ")");
  }
  // The reader's own message doesn't tell a file that may not be opened from a broken one.
  files.Close(files.OpenForReading(path));
}

std::unique_ptr<SpectrumFile> ReadSpectrumFile(FileLayer& files, const std::string& path) {
  CheckReadable(files, path);
  auto file = std::make_unique<SpectrumFile>();
  CollectingDialogs dialogs;
  std::int16_t last_data_type = 0;
  FileContext context{files, dialogs, last_data_type};
  if (ReadByExtension(context, path, file->Parts()) != kTrue) {
    throw BatchError("not a whole spectrum file: " +
                     (dialogs.messages.empty() ? "" : dialogs.messages.back()));
  }
  return file;
}

}  // namespace dorvane

// Reading a spectrum aside, so that a failure leaves record and channels as they were, and
// replacing a file with a message of its own for the opening.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "files/FileContext.h"
#include "workspace/SpectrumRec.h"

namespace dorvane {

// Reads the file and hands its image with copies of channels and record to `parse`, whose answer,
// -1 or 0, is the answer; the copies are taken over after -1. A file that cannot be opened ends in
// the box "Open Error", a Fault of `parse` in a box with `message`, both with 0.
template <typename Parse>
std::int16_t ReadAside(FileContext& context, std::string_view message, const std::string& path,
                       ChannelBlock& block, SpectrumRec& record, Parse&& parse) {
  ByteVector image;
  const auto read = [&] {
    image = ReadFile(context.files, path);
    return kTrue;
  };
  if (Guarded(context, kOpenError, read) != kTrue) return kFalse;
  return Guarded(context, message, [&] {
    const auto block_read = std::make_unique<ChannelBlock>(block);
    SpectrumRec record_read = record;
    const std::int16_t answer = parse(std::span<const std::byte>(image), *block_read, record_read);
    if (answer == kTrue) {
      block = *block_read;
      record = record_read;
    }
    return answer;
  });
}

// Asks before it replaces a file, 0 after No, opens it and writes the answer of `make_image`: "Open
// Error" where that fails before the file is open, else a box with `message`; 0 after either.
template <typename MakeImage>
std::int16_t AskAndReplace(FileContext& context, std::string_view question,
                           std::string_view message, const std::string& path,
                           MakeImage&& make_image) {
  std::unique_ptr<FileReplacement> file;
  const auto open = [&] {
    if (context.files.Info(path) && !AskReplace(context, question)) return kFalse;
    file = std::make_unique<FileReplacement>(context.files, path);
    return kTrue;
  };
  if (Guarded(context, kOpenError, open) != kTrue) return kFalse;
  return Guarded(context, message, [&] {
    file->Commit(make_image());
    return kTrue;
  });
}

}  // namespace dorvane

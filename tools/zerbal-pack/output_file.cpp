#include "zerbal-pack/output_file.h"

#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

#include <unistd.h>

namespace zerbal::pack {

OutputFile::OutputFile(std::filesystem::path file) : file_(std::move(file)), temporary_(file_) {
  temporary_ += "." + std::to_string(getpid()) + ".new";
  stream_.open(temporary_, std::ios::binary | std::ios::trunc);
  ThrowUnlessGood();
}

OutputFile::~OutputFile() {
  stream_.close();
  std::error_code ignored;
  if (!committed_)
    std::filesystem::remove(temporary_, ignored);
}

void OutputFile::Write(std::string_view bytes) {
  stream_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  ThrowUnlessGood();
}

void OutputFile::Commit() {
  stream_.close();
  ThrowUnlessGood();
  std::filesystem::rename(temporary_, file_);
  committed_ = true;
}

void OutputFile::ThrowUnlessGood() const {
  if (stream_)
    return;
  const std::error_code reason(errno != 0 ? errno : EIO, std::generic_category());
  throw std::filesystem::filesystem_error("cannot write", file_, reason);
}

}  // namespace zerbal::pack

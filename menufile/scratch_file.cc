#include "menufile/scratch_file.h"

#include <algorithm>

#include "menufile/failure.h"

namespace menufile {

ScratchFile::ScratchFile(FileSystem& files, const std::string& name)
    : file_(files.Open(name, OpenMode::Create)), old_(file_->ReadAll()) {}

std::string_view ScratchFile::Tail(std::size_t size) const {
  return std::string_view(old_).substr(std::min(size, old_.size()));
}

void ScratchFile::Write(std::string_view bytes) { file_->Write(bytes); }

void ScratchFile::WriteWhole(std::string_view bytes) {
  file_->Write(bytes);
  file_->Flush();
}

void RemoveScratchFile(FileSystem& files, const std::string& name) {
  try {
    files.Remove(name);
  } catch (const Failure&) {
    // Mostly there is none; and one that stays does no harm.
  }
}

}  // namespace menufile

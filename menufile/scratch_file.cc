#include "menufile/scratch_file.h"

#include "menufile/failure.h"

namespace menufile {

ScratchFile::ScratchFile(FileSystem& files, const std::string& name)
    : file_(files.Open(name, OpenMode::Create)), leftover_(file_->ReadAll()) {}

void ScratchFile::Write(std::string_view bytes) {
  file_->Write(bytes);
  contents_ += bytes;
}

void ScratchFile::Complete() { file_->Flush(); }

const std::string& ScratchFile::Contents() {
  if (contents_.size() < leftover_.size()) {
    contents_.append(leftover_, contents_.size());
  }
  return contents_;
}

void RemoveScratchFile(FileSystem& files, const std::string& name) {
  try {
    files.Remove(name);
  } catch (const Failure&) {
    // Mostly there is none; and one that stays does no harm.
  }
}

}  // namespace menufile

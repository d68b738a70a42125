#include "menufile/failure.h"

#include <utility>

namespace menufile {

Failure::Failure(std::string path, std::string doing, std::string reason,
                 std::optional<std::uint64_t> offset)
    : path_(std::move(path)),
      doing_(std::move(doing)),
      reason_(std::move(reason)),
      offset_(offset),
      message_("Cannot " + doing_ + ":\n" + path_ + "\n\n" + reason_) {
  if (offset_) {
    message_ += " (at byte offset " + std::to_string(*offset_) + ")";
  }
  message_ += '.';
}

}  // namespace menufile

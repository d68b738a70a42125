#ifndef CORVALIS_WIZARD_TARGET_H_
#define CORVALIS_WIZARD_TARGET_H_

#include <string>

namespace wizard {

// Whether an entry may have this target: an address by one of six protocols,
// told by its first characters as they are, or whatever a listing of files
// finds.
bool IsAcceptedTarget(const std::wstring& target);

}  // namespace wizard

#endif  // CORVALIS_WIZARD_TARGET_H_

#ifndef CORVALIS_WIZARD_TARGET_H_
#define CORVALIS_WIZARD_TARGET_H_

#include <string>

namespace wizard {

// Returns true if an entry may have this target: it begins with one of six address
// prefixes, or FindFirstFile() finds a file or folder. Case matters in the prefixes.
bool IsAcceptedTarget(const std::wstring& target);

}  // namespace wizard

#endif  // CORVALIS_WIZARD_TARGET_H_

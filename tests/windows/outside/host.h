#ifndef CORVALIS_TESTS_WINDOWS_OUTSIDE_HOST_H_
#define CORVALIS_TESTS_WINDOWS_OUTSIDE_HOST_H_

#include <string>

// Functions of the system that Wine runs on, for what Windows cannot do.
namespace outside {

// The Windows path of the project's folder build/.
std::string BuildFolder();

// Starts a command of the host without waiting for it. Returns true if it was started; its
// exit code is not known.
bool StartOnHost(const std::string& commandLine, const std::string& folder);

// The host's id of the process whose command line has this argument; 0 if there is none.
int HostProcess(const std::string& argument);

// True if the process still runs. The host may list it for seconds after its end.
bool IsHostProcessAtWork(int number);

// Saves a picture of the whole screen as build/screenshots/NAME.png. NAME may have a folder
// ("story/01_opened").
bool TakeScreenshot(const std::string& name);

}  // namespace outside

#endif  // CORVALIS_TESTS_WINDOWS_OUTSIDE_HOST_H_

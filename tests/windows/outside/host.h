#ifndef CORVALIS_TESTS_WINDOWS_OUTSIDE_HOST_H_
#define CORVALIS_TESTS_WINDOWS_OUTSIDE_HOST_H_

#include <string>

// The system that Wine runs on: what a test needs of it and Windows cannot do.
namespace outside {

// The folder build/ of the project, as a program under Wine sees it.
std::string BuildFolder();

// Starts a command of the host, and does not wait for it. Nothing tells how it
// ends.
bool StartOnHost(const std::string& commandLine, const std::string& folder);

// The host's own number of the process whose command line holds this argument;
// 0 when there is none.
int HostProcess(const std::string& argument);
// Whether the process of that number still does anything. When it is over, the
// host may list it for seconds yet.
bool IsHostProcessAtWork(int number);

// Saves a picture of the whole screen as build/screenshots/NAME.png; a folder
// may stand before the name ("story/01_opened").
bool TakeScreenshot(const std::string& name);

}  // namespace outside

#endif  // CORVALIS_TESTS_WINDOWS_OUTSIDE_HOST_H_

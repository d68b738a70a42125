#ifndef CORVALIS_BENCHMARKS_COUNTING_VIEW_H_
#define CORVALIS_BENCHMARKS_COUNTING_VIEW_H_

#include <cstddef>

#include "menufile/loader.h"

namespace bench {

// Counts entries and shows nothing, so that only the loader's work is measured.
class CountingView final : public menufile::MenuView {
 public:
  std::size_t items = 0;

  bool ConfirmUpgrade() override { return false; }
  void ShowAppearance(const menufile::AppearanceRecord&) override {}
  void AppendItem(std::size_t, const menufile::MenuItemRecord&) override { ++items; }
  void ShowDirectoryPointer(const menufile::DirectoryPointerRecord&) override {}
};

}  // namespace bench

#endif  // CORVALIS_BENCHMARKS_COUNTING_VIEW_H_

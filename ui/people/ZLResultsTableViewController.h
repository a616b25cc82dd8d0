// The table of the contacts that a search found. Main thread.

#pragma once

#include "platform/Export.h"

#include "ui/people/ZLBaseTableViewController.h"

namespace zephyl {

class ZP_EXPORT ZLResultsTableViewController : public ZLBaseTableViewController {
 public:
  [[nodiscard]] const char* className() const override { return "ZLResultsTableViewController"; }
};

}  // namespace zephyl

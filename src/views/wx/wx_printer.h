// The real printer: the system printer of the platform.
#pragma once

#include <wx/cmndata.h>

#include "views/printer.h"

namespace views::wx {

class WxPrinter : public Printer {
  public:
    void ShowSetup() override;

  protected:
    void Send(const std::vector<Page>& pages) override;

  private:
    wxPrintData data_;  // as set up in this run
};

}  // namespace views::wx

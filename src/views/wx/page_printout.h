// Pages of text on paper: in a font of fixed width, so that the columns of the text are columns on
// the paper.
#pragma once

#include <wx/gdicmn.h>
#include <wx/print.h>

#include <string_view>
#include <vector>

#include "views/printer.h"

namespace views::wx {

class PagePrintout : public wxPrintout {
  public:
    // The pages must outlive the printout.
    PagePrintout(const wxString& title, const std::vector<Printer::Page>& pages)
        : wxPrintout(title), pages_(pages) {}

    // How many sheets of paper the pages take; known once printing is prepared.
    int Sheets() const { return static_cast<int>(sheets_.size()); }

    void OnPreparePrinting() override;
    void GetPageInfo(int* first, int* last, int* from, int* to) override;
    bool HasPage(int sheet) override;
    bool OnPrintPage(int sheet) override;

  private:
    using Sheet = std::vector<std::string_view>;

    void Measure();
    void FillSheets();
    void DrawLine(std::string_view line, int y);

    const std::vector<Printer::Page>& pages_;
    std::vector<Sheet> sheets_;
    wxFont font_;
    wxRect area_;             // between the margins, in the device's units
    double columnWidth_ = 1;  // likewise
    int lineHeight_ = 1;
};

}  // namespace views::wx

#include "views/wx/wx_printer.h"

#include <wx/log.h>
#include <wx/print.h>
#include <wx/printdlg.h>
#include <wx/toplevel.h>
#include <wx/utils.h>

#include "errors/errors.h"
#include "views/wx/convert.h"
#include "views/wx/page_printout.h"

#ifdef __WXMSW__
#include <wx/msw/printdlg.h>
#include <wx/msw/wrapwin.h>

#include <commdlg.h>
#else
#include "views/wx/print_server.h"
#endif

namespace views::wx {
namespace {

// Collects what the toolkit would tell the operator in boxes of its own.
class Reasons : public wxLog {
  public:
    Reasons() : before_(wxLog::SetActiveTarget(this)) {}
    ~Reasons() override { wxLog::SetActiveTarget(before_); }
    const wxString& Text() const { return text_; }

  protected:
    void DoLogTextAtLevel(wxLogLevel level, const wxString& message) override {
        if (level <= wxLOG_Error) text_ += "\n" + message;
    }

  private:
    wxLog* before_;
    wxString text_;
};

// Prints all its sheets. How many there are is known only when the printer has told the size of
// its paper, and without being told the toolkit prints none on some platforms.
class Document : public PagePrintout {
  public:
    Document(const std::vector<Printer::Page>& pages, wxPrinter& printer)
        : PagePrintout("Quarvel", pages), printer_(printer) {}

    void OnPreparePrinting() override {
        PagePrintout::OnPreparePrinting();
        printer_.GetPrintDialogData().SetFromPage(1);
        printer_.GetPrintDialogData().SetToPage(Sheets());
    }
    bool OnPrintPage(int sheet) override {
        ++printed_;
        return PagePrintout::OnPrintPage(sheet);
    }
    bool AllPrinted() const { return printed_ >= Sheets(); }

  private:
    wxPrinter& printer_;
    int printed_ = 0;
};

wxWindow* WindowOnTop() {
    const auto last = wxTopLevelWindows.GetLast();
    return last == nullptr ? nullptr : last->GetData();
}

// The data to print with now. Throws FatalError when there is no printer.
wxPrintData DataForPrinter(const wxPrintData& data) {
    wxPrintData result = data;
#ifdef __WXMSW__
    if (!result.IsOk()) throw errors::FatalError("There is no printer.");
#else
    const auto chosen = result.GetPrinterName().utf8_string();
    result.SetPrinterName(wxString::FromUTF8(PrinterToUse(chosen)));
#endif
    return result;
}

}  // namespace

void WxPrinter::Send(const std::vector<Page>& pages) {
    wxPrintDialogData dialogData(DataForPrinter(data_));
    // Otherwise a newer toolkit takes the first sheet for all of them.
    dialogData.SetAllPages(true);
    wxPrinter printer(&dialogData);
    Document printout(pages, printer);
    const Reasons reasons;
    const bool done = printer.Print(WindowOnTop(), &printout, /*prompt=*/false);
    if (done ? printout.AllPrinted() : wxPrinter::GetLastError() == wxPRINTER_CANCELLED) return;
    const auto text = FromWx(reasons.Text());
    throw errors::FatalError("The printer failed." + text.value_or(""));
}

#ifdef __WXMSW__

// The system's own set-up of printer, paper and orientation, which the toolkit does not offer.
void WxPrinter::ShowSetup() {
    data_.ConvertToNative();
    auto& native = *static_cast<wxWindowsPrintNativeData*>(data_.GetNativeData());
    const wxWindow* const owner = WindowOnTop();
    PRINTDLGW dialog = {};
    dialog.lStructSize = sizeof(dialog);
    dialog.hwndOwner = owner == nullptr ? nullptr : static_cast<HWND>(owner->GetHandle());
    dialog.hDevMode = native.GetDevMode();
    dialog.hDevNames = native.GetDevNames();
    dialog.Flags = PD_PRINTSETUP;
    const bool accepted = PrintDlgW(&dialog) != FALSE;
    // The dialog may have replaced both, even where it was cancelled.
    native.SetDevMode(dialog.hDevMode);
    native.SetDevNames(dialog.hDevNames);
    if (accepted) data_.ConvertFromNative();
}

#else

void WxPrinter::ShowSetup() {
    wxPageSetupDialogData pageData(data_);
    wxPageSetupDialog dialog(WindowOnTop(), &pageData);
    if (dialog.ShowModal() == wxID_OK) data_ = dialog.GetPageSetupDialogData().GetPrintData();
}

#endif

}  // namespace views::wx

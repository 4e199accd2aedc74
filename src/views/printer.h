// The printer as a window uses it: text at the current place, columns of characters, pages.
//
// The document is gathered in lines and handed to the device as a whole, so that a printer that
// fails half-way leaves no half document behind it that nobody knows of.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace views {

class Printer {
  public:
    // What a new page forced apart. A page with more lines than fit on paper goes on on the next.
    using Page = std::vector<std::string>;

    virtual ~Printer() = default;

    // Appends to the current line.
    void Print(std::string_view text);
    // Moves to a column, counted from 1; to that of the next line if it is passed already.
    void MoveTo(int column);
    void NewLine();
    void PrintLine(std::string_view text);
    void NewPage();
    // Sends the document and begins an empty one. Throws errors::FatalError with the reason when
    // there is no printer or it fails; the document is then dropped.
    void EndDocument();

    // Shows the platform's printer set-up.
    virtual void ShowSetup() = 0;

  protected:
    virtual void Send(const std::vector<Page>& pages) = 0;

  private:
    std::vector<Page> pages_ = {{}};
    std::string line_;
};

// The printer's set-up as a window has it among its controls.
class PrinterSetupDialog {
  public:
    void Show() const;
};

// The one printer of the run. InstallPrinter gives back the one before.
Printer& ThePrinter();
Printer* InstallPrinter(Printer* printer);

}  // namespace views

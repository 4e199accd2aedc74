#include "views/printer.h"

#include <utility>

namespace views {
namespace {

Printer* g_printer = nullptr;

}  // namespace

void Printer::Print(std::string_view text) {
    line_ += text;
}

void Printer::MoveTo(int column) {
    const auto before = static_cast<std::size_t>(column > 1 ? column - 1 : 0);
    if (line_.size() > before) NewLine();
    line_.resize(before, ' ');
}

void Printer::NewLine() {
    pages_.back().push_back(std::exchange(line_, {}));
}

void Printer::PrintLine(std::string_view text) {
    Print(text);
    NewLine();
}

void Printer::NewPage() {
    if (!line_.empty()) NewLine();
    pages_.emplace_back();
}

void Printer::EndDocument() {
    if (!line_.empty()) NewLine();
    const auto pages = std::exchange(pages_, {{}});
    Send(pages);
}

void PrinterSetupDialog::Show() const {
    ThePrinter().ShowSetup();
}

Printer& ThePrinter() {
    return *g_printer;
}

Printer* InstallPrinter(Printer* printer) {
    return std::exchange(g_printer, printer);
}

}  // namespace views

#include "views/wx/page_printout.h"

#include <wx/dc.h>
#include <wx/font.h>

#include <algorithm>
#include <cmath>

#include "views/wx/convert.h"

namespace views::wx {
namespace {

// 80 characters and room for the longest form of date and time in the last column.
constexpr std::size_t kColumns = 84;
constexpr double kMargin = 15;         // mm
constexpr double kWidestColumn = 2.4;  // mm; on wide paper the lines need not fill the page

}  // namespace

void PagePrintout::OnPreparePrinting() {
    Measure();
    FillSheets();
}

void PagePrintout::Measure() {
    wxSize size, millimetres;
    GetPageSizePixels(&size.x, &size.y);
    GetPageSizeMM(&millimetres.x, &millimetres.y);
    const double perMillimetre = static_cast<double>(size.x) / std::max(millimetres.x, 1);
    area_ = GetPaperRectPixels();
    area_.Deflate(static_cast<int>(kMargin * perMillimetre));
    area_.Intersect(wxRect(size));

    wxDC& dc = *GetDC();
    const wxString widest('M', kColumns);
    const auto widthAt = [&](double points) {
        font_ = wxFont(wxFontInfo(points).Family(wxFONTFAMILY_TELETYPE));
        dc.SetFont(font_);
        return dc.GetTextExtent(widest).x;
    };
    // Tried out, as not every device takes the same points for a size on paper.
    constexpr double kTrial = 100;
    const double width = std::min<double>(area_.width, kWidestColumn * perMillimetre * kColumns);
    double points = kTrial * width / std::max(widthAt(kTrial), 1);
    // Sizes come in steps on some devices.
    while (widthAt(points) > width && points > 1) points -= 0.1;
    columnWidth_ = static_cast<double>(widthAt(points)) / kColumns;
    lineHeight_ = std::max(dc.GetCharHeight(), 1);
}

void PagePrintout::FillSheets() {
    const auto linesPerSheet = static_cast<std::size_t>(std::max(area_.height / lineHeight_, 1));
    sheets_.clear();
    for (const Printer::Page& page : pages_) {
        sheets_.emplace_back();
        const auto add = [&](std::string_view line) {
            if (sheets_.back().size() == linesPerSheet) sheets_.emplace_back();
            sheets_.back().push_back(line);
        };
        for (std::string_view line : page) {
            // What is longer than the paper is wide goes on on the next line.
            for (; line.size() > kColumns; line.remove_prefix(kColumns)) {
                add(line.substr(0, kColumns));
            }
            add(line);
        }
    }
}

void PagePrintout::GetPageInfo(int* first, int* last, int* from, int* to) {
    *first = *from = 1;
    *last = *to = Sheets();
}

bool PagePrintout::HasPage(int sheet) {
    return sheet >= 1 && sheet <= Sheets();
}

bool PagePrintout::OnPrintPage(int sheet) {
    if (!HasPage(sheet)) return false;
    GetDC()->SetFont(font_);
    int y = area_.y;
    for (const std::string_view line : sheets_[static_cast<std::size_t>(sheet - 1)]) {
        DrawLine(line, y);
        y += lineHeight_;
    }
    return true;
}

// Piece by piece between wider gaps, each from its own column: a character that the font lacks and
// takes from another one then moves nothing behind the gap.
void PagePrintout::DrawLine(std::string_view line, int y) {
    std::size_t at = line.find_first_not_of(' ');
    while (at != line.npos) {
        const std::size_t end = std::min(line.find("  ", at), line.size());
        const int x =
            area_.x + static_cast<int>(std::lround(columnWidth_ * static_cast<double>(at)));
        GetDC()->DrawText(ToWx(line.substr(at, end - at)), x, y);
        at = line.find_first_not_of(' ', end);
    }
}

}  // namespace views::wx

#include "report/contour_panel.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "text/numbers.h"

namespace report {
namespace {

using std::string;

constexpr double kWidth = 340;
// The torch runs half a kerf beside the contour.
constexpr double kHalfKerf = 6;

Words Place(const Point& point) {
    return Words(point.x) + " " + Words(point.y);
}

void Label(Html& html, const char* style, const Point& at, const char* anchor, const Words& text) {
    html.Put("text", {{"class", style}, {"x", at.x}, {"y", at.y}, {"text-anchor", anchor}}, text);
}

// A head that points the way the torch runs; `heading` in degrees, 0 to the right, 90 down.
void Arrow(Html& html, const char* style, const Point& at, double heading, double size = 1) {
    html.Empty("path", {{"class", style},
                        {"d", "M9 0L-6 -6.5L-6 6.5z"},
                        {"transform", "translate(" + Place(at) + ") rotate(" + Words(heading) +
                                          ") scale(" + Words(size) + ")"}});
}

// Units of the drawing for a mm: the leads fill the room beside the contour.
double ScaleOf(const Leads& leads) {
    double up = leads.inLength, down = 0, side = std::abs(leads.drawnOverrun);
    for (const Lead* lead : {&leads.in, &leads.out}) {
        for (const Point& point : {lead->end, lead->extended}) {
            up = std::max(up, point.y);
            down = std::max(down, -point.y);
            side = std::max(side, std::abs(point.x));
        }
        side = std::max(side, lead->radius + std::abs(lead->contour.x));
    }
    const double scale = std::min(84 / up, 120 / side);
    return down > 0 ? std::min(scale, 42 / down) : scale;
}

// A closed contour that starts in the middle of an edge, with the scrap above.
class ClosedContour {
  public:
    ClosedContour(Html& html, const Leads& leads, bool hole, int direction)
        : html_(html),
          leads_(leads),
          hole_(hole),
          direction_(direction),
          // Clockwise round a part the torch runs to the right along its upper edge; along the
          // lower edge of a hole it does so anticlockwise. What is not set is drawn as if it were
          // that, without arrows.
          sign_(direction == (hole ? -1 : 1) ? -1 : 1),
          scale_(ScaleOf(leads)),
          left_(hole ? 28 : 36),
          top_(hole ? 48 : 140),
          bottom_(hole ? 204 : 236),
          edge_(hole ? bottom_ : top_) {}

    void Draw() {
        DrawPlate();
        for (const char* style : {"kerf", "torch"}) {
            Rectangle(style, kHalfKerf);
            DrawLead(leads_.in, style);
            DrawLead(leads_.out, style);
        }
        DrawOverrun();
        for (const Lead* lead : {&leads_.in, &leads_.out}) {
            DrawLeadArrow(*lead);
            DrawAngle(*lead);
        }
        DrawArrows();
        const Point pierce = At(leads_.in.extended);
        for (const double radius : {7.0, 2.5}) {
            html_.Empty("circle", {{"class", radius > 5 ? "pierce" : "dot"},
                                   {"cx", pierce.x},
                                   {"cy", pierce.y},
                                   {"r", radius}});
        }
        DrawLengths();
    }

  private:
    // A place in mm on the drawing.
    Point At(const Point& point) const {
        return {kWidth / 2 + sign_ * point.x * scale_, Torch() - point.y * scale_};
    }
    double Torch() const { return edge_ - kHalfKerf; }
    bool IsLeadIn(const Lead& lead) const { return &lead == &leads_.in; }

    // The contour, or a line so far beside it on the side of the scrap.
    void Rectangle(const char* style, double beside) {
        const double out = hole_ ? -beside : beside;
        html_.Empty("rect", {{"class", style},
                             {"x", left_ - out},
                             {"y", top_ - out},
                             {"width", kWidth - 2 * (left_ - out)},
                             {"height", bottom_ - top_ + 2 * out},
                             {"rx", 10 + out}});
    }

    void DrawPlate() {
        if (hole_) {
            html_.Empty("rect",
                        {{"class", "part"}, {"x", 2}, {"y", 24}, {"width", 336}, {"height", 224}});
        }
        Rectangle(hole_ ? "hole" : "part", 0);
        Label(html_, "place", {kWidth / 2, hole_ ? 41.0 : 205.0}, "middle", "part");
        if (!hole_) Label(html_, "place", {kWidth / 2, 16}, "middle", "scrap");
        if (hole_) Label(html_, "place", {kWidth / 2, 76}, "middle", "scrap");
    }

    // From the contour outwards.
    void DrawLead(const Lead& lead, const char* style) {
        if (lead.type == LeadType::kNone) return;
        const Point from = At(lead.contour), to = At(lead.end), far = At(lead.extended);
        Words path = "M" + Place(from) + "L";
        if (lead.type != LeadType::kLine) {
            const Words radius = lead.radius * scale_;
            const bool clockwise = IsLeadIn(lead) == (sign_ > 0);
            path = "M" + Place(from) + "A" + radius + " " + radius + " 0 0 " +
                   (clockwise ? "1 " : "0 ");
        }
        const string names = string(style) + (IsLeadIn(lead) ? " in" : " out");
        html_.Empty("path", {{"class", names}, {"d", path + Place(to)}});
        if (lead.extended.x == lead.end.x && lead.extended.y == lead.end.y) return;
        html_.Empty("path",
                    {{"class", names + " extension"}, {"d", "M" + Place(to) + "L" + Place(far)}});
    }

    void DrawLeadArrow(const Lead& lead) {
        if (lead.type == LeadType::kNone) return;
        const double away = IsLeadIn(lead) ? -1 : 1;
        Point middle{(lead.contour.x + lead.end.x) / 2, (lead.contour.y + lead.end.y) / 2};
        if (lead.radius > 0) {
            const double half = std::numbers::pi / (lead.type == LeadType::kHalf ? 2 : 4);
            middle = {lead.contour.x + away * lead.radius * std::sin(half),
                      lead.radius * (1 - std::cos(half))};
        }
        // In its middle an arc is as steep as the line between its ends.
        const double dx = away * sign_ * (lead.end.x - lead.contour.x),
                     dy = -away * (lead.end.y - lead.contour.y);
        Arrow(html_, IsLeadIn(lead) ? "head in" : "head out", At(middle),
              std::atan2(dy, dx) * 180 / std::numbers::pi,
              // Smaller than its lead.
              std::clamp(std::hypot(dx, dy) * scale_ / 50, 0.6, 1.0));
    }

    // Round the whole contour; beside its start, so that the leads do not cover them.
    void DrawArrows() {
        if (direction_ != 1 && direction_ != -1) return;
        const double out = hole_ ? -kHalfKerf : kHalfKerf, turn = direction_ < 0 ? 0 : 180;
        const double middle = (top_ + bottom_) / 2 - (hole_ ? 0 : 6);
        for (const double x : {kWidth * 0.2, kWidth * 0.8}) {
            Arrow(html_, "head", {x, top_ - out}, turn);
            Arrow(html_, "head", {x, bottom_ + out}, turn + 180);
        }
        Arrow(html_, "head", {kWidth - left_ + out, middle}, turn + 90);
        Arrow(html_, "head", {left_ - out, middle}, turn + 270);
    }

    // With its dimension below the edge, as on a drawing.
    void DrawOverrun() {
        if (leads_.drawnOverrun == 0) return;
        const Point from = At({}), to = At({leads_.drawnOverrun, 0});
        html_.Empty("path", {{"class", leads_.drawnOverrun > 0 ? "overrun" : "left-over"},
                             {"d", "M" + Place(from) + "L" + Place(to)}});
        const double below = edge_ + 16;
        Words path = "M" + Words(from.x) + " " + Words(below) + "H" + Words(to.x);
        for (const double x : {from.x, to.x}) {
            path += "M" + Words(x) + " " + Words(edge_ - 2) + "V" + Words(below + 5);
        }
        html_.Empty("path", {{"class", "dimension"}, {"d", path}});
        Label(html_, "length", {std::max(from.x, to.x) + 7, below + 6}, "start",
              text::NumberText(static_cast<std::int32_t>(leads_.overrun)) + " mm");
    }

    // Between the contour and a straight lead.
    void DrawAngle(const Lead& lead) {
        if (lead.type != LeadType::kLine) return;
        const double away = IsLeadIn(lead) ? -1 : 1, radius = 28;
        const double angle = std::atan2(lead.end.y, away * (lead.end.x - lead.contour.x));
        if (std::abs(angle) < 0.15) return;
        const Point corner = At(lead.contour);
        const auto on = [&](double at) {
            return Place({corner.x + sign_ * away * radius * std::cos(at),
                          corner.y - radius * std::sin(at)});
        };
        const bool clockwise = (sign_ * away > 0) != (angle > 0);
        html_.Empty("path",
                    {{"class", "dimension"},
                     {"d", "M" + on(0) + "A28 28 0 0 " + (clockwise ? "1 " : "0 ") + on(angle)}});
    }

    // In the upper corners, each on the side where its lead is.
    void DrawLengths() {
        const auto corner = [&](const Lead& lead, double length, int angle, const char* style) {
            if (lead.type == LeadType::kNone) return;
            Words shown = text::ShownNumber(text::ToSingle(length)) + " mm";
            if (lead.type == LeadType::kLine) {
                shown += u8", " + Words(text::NumberText(angle)) + u8"°";
            }
            const bool right = IsLeadIn(lead) == (sign_ < 0);
            const char* const which = IsLeadIn(lead) ? "in " : "out ";
            Label(html_, style, {right ? kWidth - 4 : 4, 16}, right ? "end" : "start",
                  which + shown);
        };
        corner(leads_.in, leads_.inLength, leads_.inAngle, "length in");
        corner(leads_.out, leads_.outLength, leads_.outAngle, "length out");
    }

    Html& html_;
    const Leads& leads_;
    bool hole_;
    int direction_;
    double sign_;                        // 1 where the torch runs to the right at the start
    double scale_;                       // units for a mm
    double left_, top_, bottom_, edge_;  // of the contour, and where it starts
};

}  // namespace

Leads::Leads(const process::ProcessRecord& record) {
    std::vector<const process::ThicknessRow*> rows;
    for (int k = 1; k <= record.ThicknessCount; ++k) {
        if (record.Row(k).DefaultLeadin > 0) rows.push_back(&record.Row(k));
    }
    if (!rows.empty()) {
        row = rows[rows.size() / 2];
        inLength = double{row->DefaultLeadin};
    }
    outLength = inLength * std::max<int>(record.LeadoutPercent, 0) / 100;
    overrun = record.LeadoutOverrun;
    inAngle = record.Angle;
    outAngle = record.Leadoutangle;
    const double drawnOut = outLength > 0 ? std::clamp(outLength, inLength / 6, inLength * 2) : 0;
    if (overrun != 0) {
        const double size = std::clamp(std::abs(overrun), inLength / 8, inLength * 1.2);
        drawnOverrun = std::copysign(size, overrun);
    }
    toScale = drawnOut == outLength && drawnOverrun == overrun;
    in = LeadIn(TypeOfLead(record.Leadin), record.Angle, inLength,
                record.Extension == 1 ? inLength / 2 : 0);
    // One without a length is none on the plate.
    const auto outType = outLength > 0 ? TypeOfLead(record.Leadout) : LeadType::kNone;
    out = LeadOut(outType, record.Leadoutangle, drawnOut,
                  record.Leadoutextension == 1 ? drawnOut / 2 : 0, drawnOverrun);
}

void DrawOutside(Html& html, const Leads& leads, int direction) {
    ClosedContour(html, leads, false, direction).Draw();
}

void DrawHole(Html& html, const Leads& leads, int direction) {
    ClosedContour(html, leads, true, direction).Draw();
}

void DrawOpenContour(Html& html, int side) {
    const bool set = side >= -1 && side <= 1;
    const double contour = 138, torch = contour - (set ? side * 9 : 0);
    const auto line = [&](const char* style, double y) {
        html.Empty("line", {{"class", style}, {"x1", 14}, {"y1", y}, {"x2", 156}, {"y2", y}});
    };
    if (set) line("kerf wide", torch);
    line("contour", contour);
    if (set) line("torch", torch);
    if (set) Arrow(html, "head", {85, torch}, 0);
    Label(html, "place", {85, 96}, "middle", "left");
    Label(html, "place", {85, 190}, "middle", "right");
}

}  // namespace report

#include "report/chart.h"

#include <algorithm>

#include "report/axis.h"
#include "text/numbers.h"

namespace report {
namespace {

using std::string;

// The drawing in its own units; the page makes it as wide as there is room.
constexpr double kHeight = 270, kLeft = 62, kRight = 386, kTop = 36, kBottom = 218;

string Shown(double value) {
    return text::ShownNumber(text::ToSingle(value));
}

class Drawing {
  public:
    Drawing(Html& html, const Chart& chart)
        : html_(html), chart_(chart), x_(AxisOf(&ChartPoint::x)), y_(AxisOf(&ChartPoint::y)) {}

    void Draw() {
        const string titleId = chart_.id + "t", textId = chart_.id + "d";
        const auto svg = html_.In("svg", {{"class", "chart"},
                                          {"viewBox", "0 0 400 270"},
                                          {"role", "group"},
                                          {"aria-labelledby", titleId + " " + textId}});
        html_.Put("title", {{"id", titleId}},
                  chart_.process + ": " + chart_.what + " over thickness");
        html_.Put("desc", {{"id", textId}}, Description());
        DrawGrid();
        DrawCourse();
        for (const ChartPoint& point : chart_.points) DrawPoint(point);
    }

  private:
    Axis AxisOf(float ChartPoint::* value) const {
        std::vector<double> values;
        values.reserve(chart_.points.size());
        for (const ChartPoint& point : chart_.points) values.push_back(double{point.*value});
        return AxisFor(values);
    }
    double X(double value) const { return kLeft + (kRight - kLeft) * x_.PlaceOf(value); }
    double Y(double value) const { return kBottom - (kBottom - kTop) * y_.PlaceOf(value); }

    static const char* Scale(const Axis& axis) { return axis.logarithmic ? ", logarithmic" : ""; }

    string Description() const {
        string description = std::to_string(chart_.points.size()) + " points from " +
                             Shown(x_.low) + " to " + Shown(x_.high) + " mm" + Scale(x_) +
                             ", from " + Shown(y_.low) + " to " + Shown(y_.high) + " " +
                             chart_.unit + Scale(y_) + "; the figures are in the table";
        const auto doubtful = std::count_if(chart_.points.begin(), chart_.points.end(),
                                            [](const ChartPoint& p) { return !p.doubt.empty(); });
        if (doubtful > 0) description += "; doubtful: " + std::to_string(doubtful);
        return description + ".";
    }

    void Line(const char* style, double x1, double y1, double x2, double y2) {
        html_.Empty("line", {{"class", style}, {"x1", x1}, {"y1", y1}, {"x2", x2}, {"y2", y2}});
    }
    void Label(double x, double y, const char* anchor, const string& text) {
        html_.Put("text", {{"x", x}, {"y", y}, {"text-anchor", anchor}}, text);
    }

    void DrawGrid() {
        for (const double tick : x_.ticks) {
            Line("grid", X(tick), kTop, X(tick), kBottom);
            Label(X(tick), kBottom + 19, "middle", Shown(tick));
        }
        for (const double tick : y_.ticks) {
            Line("grid", kLeft, Y(tick), kRight, Y(tick));
            Label(kLeft - 7, Y(tick) + 5, "end", Shown(tick));
        }
        Line("axis", kLeft, kTop, kLeft, kBottom);
        Line("axis", kLeft, kBottom, kRight, kBottom);
        html_.Put("text", {{"class", "strong"}, {"x", 4}, {"y", 16}},
                  string(chart_.what) + ", " + chart_.unit + Scale(y_));
        html_.Put("text",
                  {{"class", "strong"}, {"x", kRight}, {"y", kHeight - 8}, {"text-anchor", "end"}},
                  string("Thickness, mm") + Scale(x_));
    }

    void DrawCourse() {
        if (chart_.points.size() < 2) return;
        Words course = "";
        for (const ChartPoint& point : chart_.points) {
            course += Words(X(double{point.x})) + "," + Words(Y(double{point.y})) + " ";
        }
        html_.Empty("polyline", {{"class", "course"}, {"points", course}});
    }

    void DrawPoint(const ChartPoint& point) {
        const string values =
            text::ShownNumber(point.x) + " mm: " + text::ShownNumber(point.y) + " " + chart_.unit;
        const double x = X(double{point.x}), y = Y(double{point.y});
        if (point.doubt.empty()) {
            const auto circle =
                html_.In("circle", {{"class", "point"}, {"cx", x}, {"cy", y}, {"r", 3.5}});
            html_.Put("title", values);
        } else if (point.link.empty()) {
            DrawDoubtful(x, y, values + "; " + point.doubt);
        } else {
            const auto link = html_.In("a", {{"href", point.link}});
            DrawDoubtful(x, y, values + "; " + point.doubt);
        }
    }
    // A diamond, which a printer without colours shows apart from the others, too.
    void DrawDoubtful(double x, double y, const string& title) {
        const auto diamond =
            html_.In("path", {{"class", "doubtful"},
                              {"d", "M" + Words(x) + " " + Words(y - 9) + "l9 9l-9 9l-9-9z"}});
        html_.Put("title", title);
    }

    Html& html_;
    const Chart& chart_;
    Axis x_, y_;
};

}  // namespace

void DrawChart(Html& html, const Chart& chart) {
    Drawing(html, chart).Draw();
}

}  // namespace report

#include "report/lead_drawing.h"

#include "report/contour_panel.h"
#include "report/process_words.h"
#include "text/numbers.h"

namespace report {
namespace {

using process::ProcessRecord;
using std::string;

class Figure {
  public:
    Figure(Html& html, const ProcessRecord& record, const string& name, const string& id)
        : html_(html), record_(record), name_(name), id_(id), leads_(record) {}

    void Draw() {
        const auto figure = html_.In("figure", {{"class", "leads"}});
        {
            const auto panels = html_.In("div", {{"class", "panels"}});
            DrawClosed("Major contour", false, record_.MajorDir);
            DrawClosed("Minor contour", true, record_.MinorDir);
            DrawOpen();
        }
        DrawCaption();
    }

  private:
    void Heading(const char* what, const string& how) {
        const auto heading = html_.In("p");
        html_.Put("b", what);
        html_.Text(": " + how);
    }

    // An open svg's own names, for those who do not see it.
    void Tell(const string& id, const string& title, const Words& description) {
        html_.Put("title", {{"id", id + "t"}}, name_ + ": " + title);
        html_.Put("desc", {{"id", id + "d"}}, description);
    }

    void DrawClosed(const char* what, bool hole, int direction) {
        const string id = id_ + (hole ? "minor" : "major"), how = DirectionWords(direction);
        const auto panel = html_.In("div");
        Heading(what, how);
        const auto svg = html_.In(
            "svg",
            {{"viewBox", kPanelBox}, {"role", "img"}, {"aria-labelledby", id + "t " + id + "d"}});
        Tell(id, string(what) + ", " + how,
             "Lead-in " + LeadInWords(record_) +
                 ", from the piercing point in the scrap; lead-out " + LeadOutWords(record_) +
                 "; overrun " + text::NumberText(record_.LeadoutOverrun) + " mm.");
        if (hole) {
            DrawHole(html_, leads_, direction);
        } else {
            DrawOutside(html_, leads_, direction);
        }
    }

    void DrawOpen() {
        const string id = id_ + "open", how = KerfSideWords(record_.MinorOpenKerf);
        const auto panel = html_.In("div", {{"class", "narrow"}});
        Heading("Open minor", how);
        const auto svg = html_.In("svg", {{"viewBox", kOpenPanelBox},
                                          {"role", "img"},
                                          {"aria-labelledby", id + "t " + id + "d"}});
        Tell(id, "open minor contour, kerf " + how,
             "A contour that is cut to the right, with the kerf beside or on it.");
        DrawOpenContour(html_, record_.MinorOpenKerf);
    }

    void Sample(const char* style, const char* what) {
        const auto sample = html_.In("span", {{"class", "sample"}});
        {
            const auto svg = html_.In("svg", {{"viewBox", "0 0 36 14"}, {"aria-hidden", "true"}});
            html_.Empty("path", {{"class", style}, {"d", "M2 7H34"}});
        }
        html_.Text(what);
    }

    void DrawCaption() {
        const auto caption = html_.In("figcaption");
        {
            const auto legend = html_.In("p", {{"class", "legend"}});
            Sample("torch in", "lead-in");
            Sample("torch", "contour");
            if (leads_.drawnOverrun > 0) Sample("overrun", "overrun");
            if (leads_.drawnOverrun < 0) Sample("left-over", "left uncut");
            if (leads_.out.type != LeadType::kNone) Sample("torch out", "lead-out");
            Sample("kerf", "kerf, on the scrap");
        }
        string text = leads_.row != nullptr
                          ? "Drawn for " + text::ShownNumber(leads_.row->Thickness) + " mm."
                          : "No thickness has a lead-in length: drawn as if it were 10 mm.";
        if (leads_.in.radius > 0 || leads_.out.radius > 0) {
            text += " The length of an arc is drawn as its radius.";
        }
        if (record_.Extension == 1 || record_.Leadoutextension == 1) {
            text += " Extensions are dotted: the data have no length of them.";
        }
        if (TypeOfLead(record_.Leadout) != LeadType::kNone && leads_.outLength == 0) {
            text += " The lead-out has no length.";
        }
        if (!leads_.toScale) text += " Lead-out and overrun are not to scale.";
        if (record_.MajorDir == 0 || record_.MinorDir == 0) {
            text += " Where no direction is set, there are no arrows.";
        }
        html_.Put("p", text);
    }

    Html& html_;
    const ProcessRecord& record_;
    const string &name_, &id_;
    Leads leads_;
};

}  // namespace

void DrawLeads(Html& html, const ProcessRecord& record, const string& name, const string& id) {
    Figure(html, record, name, id).Draw();
}

}  // namespace report

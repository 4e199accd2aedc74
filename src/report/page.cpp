#include "report/page.h"

#include <array>
#include <ctime>

#include "app/system_config.h"
#include "report/html.h"
#include "report/installation.h"
#include "report/lists.h"
#include "report/overview.h"
#include "report/places.h"
#include "report/process_section.h"
#include "report/style.h"

namespace report {
namespace {

using inspect::Severity;
using std::string;

// "1 process", "2 processes".
string Counted(std::size_t count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

class Writer {
  public:
    Writer(Installation& all, const std::tm& now)
        : all_(all), found_(all.findings), names_(all.types, all.processes) {
        std::array<char, 32> text{};
        std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &now);
        made_ = text.data();
    }

    string Write(First first) {
        PlaceAll(all_, found_);
        {
            const auto root = html_.In("html", {{"lang", "en"}});
            PutHead();
            const auto body = html_.In("body");
            PutTitle();
            PutContents();
            const auto main = html_.In("main");
            if (first == First::kFindings) PutFindings();
            PutProcesses();
            PutMaterialTypes();
            PutDefaultList();
            for (const DriveData& drive : all_.drives) PutDrive(drive);
            if (first == First::kData) PutFindings();
        }
        return html_.Bytes() + "\n";
    }

  private:
    void PutHead() {
        const auto head = html_.In("head");
        html_.Empty("meta", {{"charset", "utf-8"}});
        html_.Empty("meta",
                    {{"name", "viewport"}, {"content", "width=device-width, initial-scale=1"}});
        html_.Empty("meta", {{"name", "color-scheme"}, {"content", "light dark"}});
        html_.Put("title", "Cutting data of " + Root());
        html_.Style(kStyle);
    }

    static string Root() { return app::TheConfig().NestHomeDrive + app::TheConfig().NestRootDir; }

    void PutTitle() {
        const auto header = html_.In("header");
        html_.Put("h1", "Cutting data");
        html_.Put("p", Words(Root()) + u8" · " + made_ + u8" · " + FoundWords());
    }

    string FoundWords() const {
        if (!all_.checkFailure.empty()) return "not looked over";
        if (found_.Count() == 0) return "nothing found wrong";
        return Counted(found_.CountOf(Severity::kError), "error", "errors") + ", " +
               Counted(found_.CountOf(Severity::kWarning), "warning", "warnings") + ", " +
               Counted(found_.CountOf(Severity::kNote), "note", "notes");
    }

    void PutLink(const Place& place, const Words& text) {
        const auto item = html_.In("li");
        html_.Put("a", {{"href", "#" + place.id}}, text);
    }

    void PutContents() {
        const auto nav = html_.In("nav", {{"id", "contents"}, {"aria-label", "Contents"}});
        const auto group = [&](const Place& place, const Words& text, const auto& links) {
            const auto item = html_.In("div");
            {
                const auto head = html_.In("p");
                html_.Put("a", {{"href", "#" + place.id}}, text);
            }
            const auto list = html_.In("ul");
            links();
        };
        group(kProcessesPlace, "Processes", [&] {
            for (int n = 1; n <= all_.processes.ProcessCount; ++n) {
                PutLink({ProcessAnchor(n), {}}, ProcessName(all_.processes, n));
            }
        });
        group({"materials", {}}, "Materials", [&] {
            PutLink(kTypesPlace, kTypesPlace.name);
            PutLink(kDefaultListPlace, kDefaultListPlace.name);
        });
        for (const DriveData& drive : all_.drives) {
            group(PlaceOfDrive(drive), "Drive " + drive.drive, [&] {
                for (std::size_t i = 0; i < drive.lists.size(); ++i) {
                    PutLink(PlaceOfList(drive, i), drive.lists[i].directory);
                }
            });
        }
        group({"findings", {}}, "Found", [&] { PutLink({"findings", {}}, FoundWords()); });
    }

    void PutHeading(const char* level, const Place& place, const Words& text) {
        const auto heading = html_.In(level, {{"id", place.id}});
        html_.Text(text);
        PutMarks(html_, found_, place.id);
    }

    void PutFailure(const string& reason) { html_.Put("p", {{"class", "failure"}}, reason); }

    void PutProcesses() {
        PutHeading("h2", kProcessesPlace, "Processes");
        if (!all_.processFailure.empty()) {
            PutFailure(all_.processFailure);
        } else if (all_.processes.ProcessCount == 0) {
            html_.Put("p", "There are no processes.");
        } else {
            PutOverview(html_, all_.processes);
        }
        for (int n = 1; n <= all_.processes.ProcessCount; ++n) {
            PutProcess(html_, all_.processes, n, found_);
        }
    }

    void PutMaterialTypes() {
        const auto section = html_.In("section", {{"id", "materials"}, {"class", "whole"}});
        PutHeading("h2", kTypesPlace, kTypesPlace.name);
        if (!all_.typeFailure.empty()) return PutFailure(all_.typeFailure);
        if (all_.types.Count == 0) return html_.Put("p", "There are no material types.");
        PutTypes(html_, all_.types, found_);
    }

    void PutDefaultList() {
        const auto section = html_.In("section", {{"class", "directory"}});
        html_.Put("h2", {{"id", kDefaultListPlace.id}}, kDefaultListPlace.name);
        html_.Put("p", "Every new production directory begins with a copy of it.");
        PutList(html_, all_.defaultList, kDefaultListPlace, names_, found_);
    }

    void PutDrive(const DriveData& drive) {
        const auto section = html_.In("section");
        {
            const auto top = html_.In("div", {{"class", "top"}});
            PutHeading("h2", PlaceOfDrive(drive), "Drive " + drive.drive);
            if (!drive.failure.empty()) return PutFailure(drive.failure);
            PutDesigns(drive);
        }
        if (drive.lists.empty()) {
            return html_.Put("p", "There are no production directories.");
        }
        const auto lists = html_.In("div", {{"class", "directories"}});
        for (std::size_t i = 0; i < drive.lists.size(); ++i) {
            const auto directory = html_.In("section", {{"class", "directory"}});
            const Place place = PlaceOfList(drive, i);
            html_.Put("h3", {{"id", place.id}}, drive.lists[i].directory);
            PutList(html_, drive.lists[i], place, names_, found_);
        }
    }

    void PutDesigns(const DriveData& drive) {
        if (drive.designs.empty()) return html_.Put("p", "There are no design directories.");
        html_.Put("p", "Design directories:");
        const auto list = html_.In("ul", {{"class", "names"}});
        for (std::size_t i = 0; i < drive.designs.size(); ++i) {
            const Place place = PlaceOfDesign(drive, i);
            const auto item = html_.In("li", {{"id", place.id}});
            html_.Text(place.name.substr(3));
            PutMarks(html_, found_, place.id);
        }
    }

    void PutFindings() {
        const auto section = html_.In("section", {{"class", "whole"}});
        html_.Put("h2", {{"id", "findings"}}, "Found");
        if (!all_.checkFailure.empty()) PutFailure(all_.checkFailure);
        if (found_.Count() == 0) {
            if (all_.checkFailure.empty()) html_.Put("p", "There is nothing wrong or doubtful.");
            return;
        }
        const auto table = html_.In("table", {{"class", "findings"}});
        html_.Put("caption", {{"class", "unseen"}}, "What was found");
        {
            const auto head = html_.In("thead");
            const auto row = html_.In("tr");
            for (const char* name : {"No.", "Where", "What"}) {
                html_.Put("th", {{"scope", "col"}}, name);
            }
        }
        const auto body = html_.In("tbody");
        for (std::size_t n = 0; n < found_.Count(); ++n) PutFinding(n);
    }

    void PutFinding(std::size_t n) {
        const inspect::Finding& finding = found_[n];
        const Place& place = found_.PlaceOf(n);
        const string severity = inspect::NameOf(finding.severity);
        const auto row = html_.In("tr", {{"id", AnchorOf(n)}});
        {
            const auto cell = html_.In("th", {{"scope", "row"}});
            html_.Put("span", {{"class", "mark " + severity}},
                      Words(ShapeOf(finding.severity)) + (n + 1));
        }
        {
            const auto cell = html_.In("td");
            if (place.id.empty()) {
                html_.Text(place.name);
            } else {
                html_.Put("a", {{"href", "#" + place.id}}, place.name);
            }
        }
        const auto cell = html_.In("td");
        html_.Text(severity + ": " + finding.text);
        html_.Empty("br");
        html_.Put("small",
                  finding.path + (finding.line > 0 ? ":" + std::to_string(finding.line) : ""));
    }

    Installation& all_;
    Found found_;
    Names names_;
    string made_;
    Html html_;
};

}  // namespace

string Page(const std::vector<string>& drives, const std::tm& now, First first) {
    Installation all = ReadInstallation(drives);
    return Writer(all, now).Write(first);
}

}  // namespace report

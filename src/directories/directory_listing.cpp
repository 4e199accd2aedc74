#include "directories/directory_listing.h"

#include <ctime>
#include <map>

#include "app/system_config.h"
#include "platform/date_forms.h"
#include "platform/files.h"
#include "platform/folder.h"
#include "text/strings.h"
#include "views/lists.h"
#include "views/printer.h"

namespace directories {
namespace {

constexpr int kSizeColumn = 51;
constexpr int kDateColumn = 60;
constexpr std::size_t kSizeWidth = 6;

class Page {
  public:
    Page(const Listing& listing, views::ListBox& sortBox, views::Printer& printer)
        : listing_(listing), sortBox_(sortBox), printer_(printer) {}

    void Print(const std::string& directory, const std::string& path) {
        const std::time_t now = std::time(nullptr);
        const bool design = listing_.kind == app::DataKind::kDesign;
        PrintTitle("Quarvel for Windows by Halcor.           Date " +
                   dates_.ShortDate(*std::localtime(&now)));
        PrintTitle(design ? "Design Data" : "Production Data");
        PrintTitle(directory + " directory");
        for (const Category& category : listing_.categories) {
            PrintTitle(category.heading);
            PrintFiles(path + "\\" + category.folder);
            printer_.NewLine();
        }
    }

  private:
    void PrintTitle(const std::string& title) {
        printer_.PrintLine(title);
        printer_.NewLine();
    }

    void PrintFiles(const std::string& path) {
        sortBox_.Clear();
        for (const std::string& name : platform::Dir(path + "\\*.*", platform::DirKinds::kFiles)) {
            sortBox_.AddItem(name);
        }
        if (sortBox_.Count() == 0) return printer_.PrintLine("<No files>");

        const platform::Folder folder(path);
        for (const std::string& name : sortBox_.Items()) {
            // The nesting system may be at work in the directory: a file that is gone by now is
            // left out.
            if (const auto details = folder.Details(name)) PrintFile(name, *details);
        }
    }

    void PrintFile(const std::string& name, const platform::FileDetails& details) {
        // A size that is wider than its column keeps its last digits.
        const std::string size = std::string(kSizeWidth, ' ') + std::to_string(details.size);
        printer_.Print(name);
        printer_.MoveTo(kSizeColumn);
        printer_.Print(size.substr(size.size() - kSizeWidth));
        printer_.MoveTo(kDateColumn);
        printer_.PrintLine(dates_.GeneralDate(details.changed));
    }

    const Listing& listing_;
    views::ListBox& sortBox_;
    views::Printer& printer_;
    platform::DateForms dates_;
};

// The directories' names as the disk has them, by the lower-case form that the main window lists.
// With them a path is found at once; else the platform would search the folder for every access.
std::map<std::string, std::string> NamesOnDisk(const std::string& folder) {
    std::map<std::string, std::string> names;
    for (const std::string& name :
         platform::Dir(folder + "*.*", platform::DirKinds::kFilesAndDirectories)) {
        const std::string listed = text::LowerCase(name);
        const bool another = !names.emplace(listed, name).second;
        if (another) names[listed] = listed;  // for the platform to decide which is meant
    }
    return names;
}

}  // namespace

void PrintListing(const Listing& listing, views::ListBox& sortBox, views::Printer& printer) {
    const std::string folder = listing.drive + text::UpperCase(app::TheConfig().NestRootDir) +
                               "\\USER\\" +
                               (listing.kind == app::DataKind::kDesign ? "design\\" : "prod\\");
    const auto names = NamesOnDisk(folder);
    Page page(listing, sortBox, printer);
    bool first = true;
    for (const std::string& directory : listing.directories) {
        if (!first) printer.NewPage();
        first = false;
        const auto onDisk = names.find(directory);
        page.Print(directory, folder + (onDisk == names.end() ? directory : onDisk->second));
    }
}

}  // namespace directories

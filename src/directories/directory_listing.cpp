#include "directories/directory_listing.h"

#include <ctime>
#include <map>

#include "app/system_config.h"
#include "platform/date_forms.h"
#include "platform/errors.h"
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
        try {
            const auto folder = platform::Folder::IfThere(path);
            if (folder) {
                for (const std::string& name : folder->Names(platform::DirKinds::kFiles)) {
                    sortBox_.AddItem(name);
                }
            }
            bool any = false;
            for (const std::string& name : sortBox_.Items()) {
                if (PrintFile(*folder, name)) any = true;
            }
            if (!any) printer_.PrintLine("<No files>");
        } catch (const platform::FileError& failure) {
            printer_.PrintLine("<" + failure.Reason() + ">");
        }
    }

    // False when it is gone: the nesting system may be at work in the directory.
    bool PrintFile(const platform::Folder& folder, const std::string& name) {
        std::string size, date;
        try {
            const platform::FileDetails details = folder.Details(name);
            // A size that is wider than its column keeps its last digits.
            size = std::string(kSizeWidth, ' ') + std::to_string(details.size);
            size.erase(0, size.size() - kSizeWidth);
            date = dates_.GeneralDate(details.changed);
        } catch (const platform::FileError& failure) {
            if (failure.Kind() == platform::FileErrorKind::kFileNotFound) return false;
            size = "<" + failure.Reason() + ">";
        }
        printer_.Print(name);
        printer_.MoveTo(kSizeColumn);
        printer_.Print(size);
        if (!date.empty()) printer_.MoveTo(kDateColumn);
        printer_.PrintLine(date);
        return true;
    }

    const Listing& listing_;
    views::ListBox& sortBox_;
    views::Printer& printer_;
    platform::DateForms dates_;
};

// The directories' names as the disk has them, in the order in which the main window lists them, by
// the form that it lists them in.
using NamesOnDisk = std::multimap<std::string, std::string>;

NamesOnDisk NamesIn(const std::string& folder) {
    NamesOnDisk names;
    for (const std::string& name :
         platform::Dir(folder + "*.*", platform::DirKinds::kFilesAndDirectories)) {
        names.emplace(text::LowerCase(text::Trim(name)), name);
    }
    return names;
}

}  // namespace

void PrintListing(const Listing& listing, views::ListBox& sortBox, views::Printer& printer) {
    const std::string folder = listing.drive + text::UpperCase(app::TheConfig().NestRootDir) +
                               "\\USER\\" +
                               (listing.kind == app::DataKind::kDesign ? "design\\" : "prod\\");
    auto names = NamesIn(folder);
    Page page(listing, sortBox, printer);
    bool first = true;
    for (std::size_t i = 0; i < listing.directories.size(); ++i) {
        const std::string& directory = listing.directories[i];
        // Of names that differ in case only, each stands for the next of its items.
        const auto onDisk = names.find(directory);
        const std::string name = onDisk == names.end() ? directory : onDisk->second;
        if (onDisk != names.end()) names.erase(onDisk);
        if (listing.only && *listing.only != i) continue;
        if (!first) printer.NewPage();
        first = false;
        page.Print(directory, folder + name);
    }
}

}  // namespace directories

#include "directories/directory_listing.h"

#include <ctime>
#include <map>
#include <string>

#include "errors/errors.h"
#include "platform/date_forms.h"
#include "platform/files.h"
#include "platform/folder.h"
#include "views/lists.h"
#include "views/printer.h"

namespace directories {
namespace {

constexpr int kSizeColumn = 51;
constexpr int kDateColumn = 60;
constexpr std::size_t kSizeWidth = 6;

class Page {
  public:
    Page(DataKind kind, const std::vector<Category>& categories, views::ListBox& sortBox,
         views::Printer& printer)
        : kind_(kind), categories_(categories), sortBox_(sortBox), printer_(printer) {}

    void Print(const std::string& directory, const std::string& path) {
        const std::time_t now = std::time(nullptr);
        PrintTitle("Quarvel for Windows by Halcor.           Date " +
                   dates_.ShortDate(*std::localtime(&now)));
        PrintTitle(DescriptionOf(kind_));
        PrintTitle(directory + " directory");
        for (const Category& category : categories_) {
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
            bool any = false;
            if (folder) {
                for (const std::string& name : folder->Names(platform::DirKinds::kFiles)) {
                    sortBox_.AddItem(name);
                }
                for (const std::string& name : sortBox_.Items()) {
                    if (PrintFile(*folder, name)) any = true;
                }
            }
            if (!any) printer_.PrintLine("<No files>");
        } catch (const errors::FileError& failure) {
            printer_.PrintLine("<" + failure.Reason() + ">");
        }
    }

    // False when it is gone: other programs may be at work in the directory.
    bool PrintFile(const platform::Folder& folder, const std::string& name) {
        std::string size, date;
        try {
            const platform::FileDetails details = folder.Details(name);
            // A size that is wider than its column keeps its last digits.
            size = std::string(kSizeWidth, ' ') + std::to_string(details.size);
            size.erase(0, size.size() - kSizeWidth);
            date = dates_.GeneralDate(details.changed);
        } catch (const errors::FileError& failure) {
            if (failure.Kind() == errors::FileErrorKind::kFileNotFound) return false;
            size = "<" + failure.Reason() + ">";
        }
        printer_.Print(name);
        printer_.MoveTo(kSizeColumn);
        printer_.Print(size);
        if (!date.empty()) printer_.MoveTo(kDateColumn);
        printer_.PrintLine(date);
        return true;
    }

    DataKind kind_;
    const std::vector<Category>& categories_;
    views::ListBox& sortBox_;
    views::Printer& printer_;
    platform::DateForms dates_;
};

// The directories' names as the disk has them, in the order in which they are listed, by the form
// that they are listed in.
std::multimap<std::string, std::string> NamesOnDisk(const DataArea& area) {
    std::multimap<std::string, std::string> names;
    for (const std::string& name :
         platform::Dir(area.ListedPath() + "\\*.*", platform::DirKinds::kFilesAndDirectories)) {
        names.emplace(ListedName(name), name);
    }
    return names;
}

}  // namespace

void PrintListing(const Listed& listed, const std::vector<Category>& categories,
                  views::ListBox& sortBox, views::Printer& printer) {
    auto names = NamesOnDisk(listed.area);
    Page page(listed.area.kind, categories, sortBox, printer);
    bool first = true;
    for (std::size_t i = 0; i < listed.directories.size(); ++i) {
        const std::string& directory = listed.directories[i];
        // Of names that differ in case only, each stands for the next of its items.
        const auto onDisk = names.find(directory);
        const std::string name = onDisk == names.end() ? directory : onDisk->second;
        if (onDisk != names.end()) names.erase(onDisk);
        if (listed.chosen && *listed.chosen != i) continue;
        if (!first) printer.NewPage();
        first = false;
        page.Print(directory, listed.area.ListedPath() + "\\" + name);
    }
}

}  // namespace directories

// The printed listing of data directories: a page for each, with a section for each of its
// category folders and a line for each file.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "app/directory_tree.h"

namespace views {
class ListBox;
class Printer;
}  // namespace views

namespace directories {

// A folder of a data directory and what the listing calls its files.
struct Category {
    std::string folder;
    std::string heading;
};

struct Listing {
    std::string drive;  // letter and colon
    app::DataKind kind = app::DataKind::kDesign;
    std::vector<std::string> directories;  // all items of the main window's list
    std::optional<std::size_t> only;       // the one to print, if not all
    std::vector<Category> categories;
};

// Prints the listing up to the end of its last page; ending the document is the caller's. The
// names of each folder are sorted in `sortBox`. A missing folder has no files; for a folder or file
// that cannot be read the reason is printed in its place.
void PrintListing(const Listing& listing, views::ListBox& sortBox, views::Printer& printer);

}  // namespace directories

// The printed listing of data directories: a page for each, with a section for each of its
// category folders and a line for each file.
#pragma once

#include <vector>

#include "directories/data_area.h"

namespace views {
class ListBox;
class Printer;
}  // namespace views

namespace directories {

// Prints the chosen directory, or all where none is, up to the end of the last page; ending the
// document is the caller's. The names of each folder are sorted in `sortBox`. A missing folder has
// no files; for a folder or file that cannot be read the reason is printed in its place.
void PrintListing(const Listed& listed, const std::vector<Category>& categories,
                  views::ListBox& sortBox, views::Printer& printer);

}  // namespace directories

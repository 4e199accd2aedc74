// The data areas of a drive: <drive><root>\USER with DESIGN and PROD, in them the named
// directories with their category folders.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace directories {

enum class DataKind { kDesign, kProduction };

// A folder of a data directory and what the listing calls its files.
struct Category {
    std::string folder;
    std::string heading;
};

// Of the directories of a kind, in the order in which they are made and printed.
const std::vector<Category>& CategoriesOf(DataKind kind);

// "Design Data" or "Production Data".
std::string DescriptionOf(DataKind kind);

// The directories of one kind on one drive.
struct DataArea {
    std::string drive;  // letter and colon
    DataKind kind = DataKind::kDesign;

    // Both kinds: <drive><root>\USER.
    std::string UserPath() const;
    // This kind: <drive><root>\USER\DESIGN or PROD.
    std::string Path() const;
    // The same with the root in capitals: where directories are listed and printed from.
    std::string ListedPath() const;
    std::string PathOf(const std::string& directory) const { return Path() + "\\" + directory; }
};

// A data area as the main window shows it.
struct Listed {
    DataArea area;
    std::vector<std::string> directories;
    std::optional<std::size_t> chosen;  // one of them

    // Empty for none.
    std::string ChosenName() const { return chosen ? directories[*chosen] : std::string(); }
};

// Whether the drive has a data area, even an empty one. A drive that does not answer throws
// FileError.
bool HasNestData(const std::string& drive);

// Makes the empty data areas of a drive that has none. Throws FileError.
void MakeDataDrive(const std::string& drive);

// A directory's name as lists show it: in lower case, without blanks around it.
std::string ListedName(const std::string& name);

// The directories of the area by their listed names; nothing when it is missing. Files that lie
// beside them are listed, too. Throws FileError when it cannot be read.
std::vector<std::string> ListDirectories(const DataArea& area);

// Deletes the directory that a list shows as `name`, with the files in its category folders; none
// for an empty name. What cannot be deleted is skipped: nested directories, protected files, links
// and all they lead to, names that cannot be addressed, an item that more than one directory may
// be meant by.
void DeleteDirectory(const DataArea& area, const std::string& name);

}  // namespace directories

// Reading and writing process.dat.
#pragma once

#include <string>

namespace profile {
class Profile;
}

namespace process {

struct ProcessTable;

// Empties the table (ProcessCount 0) and reads the file. False only when there is no such file.
// Throws errors::FatalError, with what and the limit, for a 21st process, a 101st row or an
// integer outside 16 bits, and errors::FileError for a file that cannot be read.
bool ReadProcessFile();

// Replaces the file with the table, whole or not at all; throws errors::FileError. Trims every
// Name of the table, which leaves its clean value.
void WriteProcessFile();

// Sets process `destination` to the built-in defaults when `source` is below 1, else copies every
// field but Name from process `source`, its rows in use included.
void InitProcessRecord(int destination, int source);

// The loader's pass: ProcessCount, ProcessNames and the thickness ranges. False when there is no
// such file; throws as ReadProcessFile does.
bool ReadProcessRanges();

// The same between the bytes of a file and a table. A table stays as it was when ReadProcesses
// throws.
void ReadProcesses(const profile::Profile& file, ProcessTable& table);
void ReadProcessRanges(const profile::Profile& file, ProcessTable& table);
std::string ProcessFileText(ProcessTable& table);

}  // namespace process

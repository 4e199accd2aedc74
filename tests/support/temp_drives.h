// Real drives for a test: a folder of its own with c and d in it, removed when the test ends.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace test {

// A system as it is at the start of a run.
void FreshSystem();

class TempDrives {
  public:
    // Begins a fresh system, maps the drive letters to the folder and gives the test a session of
    // its own, so that a System Manager that happens to run on the machine is not met.
    TempDrives();
    ~TempDrives();
    TempDrives(const TempDrives&) = delete;
    TempDrives& operator=(const TempDrives&) = delete;

    const std::filesystem::path& Folder() const { return folder_; }

    // The native path of "c:\dir\file", with the case as given.
    std::filesystem::path Path(std::string_view path) const;

    // Writes a file with all its directories, and makes a directory with all above it.
    void Write(std::string_view path, std::string_view bytes) const;
    void MakeDir(std::string_view path) const;
    // The bytes of a file; fails the test when it cannot be read.
    std::string Read(std::string_view path) const;
    bool Exists(std::string_view path) const;
    // How many entries a directory has, hidden ones included.
    int Count(std::string_view path) const;
    // Takes the right to write from a file (or gives it back).
    void SetReadOnly(std::string_view path, bool readOnly) const;

  private:
    std::filesystem::path folder_;
};

}  // namespace test

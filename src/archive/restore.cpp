// Bringing a backup back: built beside its place, checked there, then renamed.
#include <algorithm>
#include <ctime>

#include "app/system_config.h"
#include "archive/stored.h"
#include "platform/drives.h"
#include "text/code_page.h"
#include "text/strings.h"

namespace archive {
namespace {

using raw::EntryType;
using std::string;

constexpr const char* kBuilt = ".restoring";  // end of the name while it is built

void Check(const fs::path& path, const std::error_code& error) {
    if (error) throw NativeError(path, error);
}

// Where it came from, below the root that the installation has today.
string PlaceOf(const List& list) {
    const auto folder = text::FromUtf8(list.folder), root = text::FromUtf8(list.root);
    if (!folder || !root) throw errors::Error("Where the backup came from is no path here");
    if (folder->size() <= 3) {
        throw errors::Error(
            "A whole drive cannot be brought back at once; its files are in the "
            "backup as files");
    }
    const string old = folder->substr(0, 2) + *root;
    const bool below = text::EqualIgnoringCase(folder->substr(0, old.size()), old) &&
                       folder->substr(old.size()).starts_with('\\');
    if (!below || root->empty()) return *folder;
    return folder->substr(0, 2) + app::TheConfig().NestRootDir + folder->substr(old.size());
}

class Restoration {
  public:
    Restoration(const Stored& stored, const Telling& telling)
        : stored_(stored), list_(ListIn(stored)), telling_(telling), place_(PlaceOf(list_)) {
        path_ = raw::Unlimited(platform::Resolve(place_));
    }

    Outcome Do(bool replace);

  private:
    fs::path Beside(const string& end) const;
    bool Differs(const raw::Info& there) const;
    void RemoveInterrupted() const;
    void Build(const fs::path& built) const;
    void PutInPlace(const fs::path& built, bool stands) const;

    const Stored& stored_;
    List list_;
    const Telling& telling_;
    string place_;   // on the system
    fs::path path_;  // the same
};

// A name that nothing has, with the date.
fs::path Restoration::Beside(const string& end) const {
    std::error_code error;
    for (std::time_t now = std::time(nullptr);; ++now) {
        fs::path path = path_;
        path += " " + Stamp(now) + end;
        const bool free = raw::Look(path, error).type == EntryType::kMissing;
        Check(path, error);
        if (free) return path;
    }
}

bool Restoration::Differs(const raw::Info& there) const {
    std::error_code error;
    const bool link = there.type == EntryType::kLink;
    const auto type = link ? raw::Look(path_, error, platform::Links::kFollow).type : there.type;
    if (error || type != EntryType::kDirectory) {
        telling_.say("something else than a folder stands in its place");
        return true;
    }
    Progress progress(telling_, WorkOf(list_.items));
    const Differences found = Compare(path_, list_.items, raw::From::kMemory, progress);
    found.Tell(telling_);
    return !found.None();
}

// What is left of a restoration that was interrupted; by its name it can be nothing else.
void Restoration::RemoveInterrupted() const {
    const string begin = Shown(path_.filename()) + " ";
    std::error_code error;
    const platform::native::Directory folder(path_.parent_path(), error);
    Check(path_.parent_path(), error);
    const auto entries = folder.Entries(error);
    Check(path_.parent_path(), error);
    for (const auto& entry : entries) {
        string name = Shown(entry.name);
        if (!name.starts_with(begin) || !name.ends_with(kBuilt)) continue;
        name = name.substr(begin.size(), name.size() - begin.size() - string(kBuilt).size());
        if (IsStamp(name)) RemoveTree(path_.parent_path() / entry.name);
    }
}

void Restoration::Build(const fs::path& built) const {
    std::error_code error;
    const std::uint64_t room = raw::Room(built.parent_path(), error);
    Check(built.parent_path(), error);
    if (BytesOf(list_.items) > room) {
        throw errors::Error("There is no room beside " + place_ + ": " +
                            std::to_string(BytesOf(list_.items)) + " bytes are needed, " +
                            std::to_string(room) + " are free");
    }
    Progress progress(telling_, WorkOf(list_.items) * 2);
    for (const Item& item : list_.items) {
        const fs::path from = item.In(stored_.path), to = item.In(built);
        if (item.IsFolder()) {
            platform::native::MakeDirectory(to, error);
            Check(to, error);
            progress.Add(WorkOf(item), item.name);
            continue;
        }
        Item copy = item;
        string why;
        const Copied copied = CopyFile(from, to, copy, progress, why, &item.info);
        if (copied == Copied::kVanished || copied == Copied::kUnreadable) {
            throw NativeError(Shown(from) + ": " + why);
        }
        if (copy.checksum != item.checksum) {
            throw NativeError(Shown(from) + ": is not what was backed up");
        }
    }
    raw::Flush(built, error);
    Check(built, error);
    const Differences found = Compare(built, list_.items, raw::From::kDisk, progress);
    found.Tell(telling_);
    if (!found.None())
        throw errors::Error("The disk of " + place_ + " has not kept what was written");
    // Of a folder only when nothing is made in it any more.
    for (auto item = list_.items.rbegin(); item != list_.items.rend(); ++item) {
        const fs::path path = item->In(built);
        if (item->IsFolder()) raw::SetTime(path, item->info.changed, error);
        if (!error) raw::SetRights(path, item->info.rights, error);
        Check(path, error);
    }
    raw::Flush(built, error);
    Check(built, error);
}

// From here on nothing is removed whatever fails: a step that is reported as failed may have been
// done, and then it would be the old tree.
void Restoration::PutInPlace(const fs::path& built, bool stands) const {
    std::error_code error;
    const auto rename = [&](const fs::path& from, const fs::path& to) {
        raw::Rename(from, to, error);
        if (error) throw NativeError(Shown(from) + " -> " + Shown(to) + ": " + Reason(error));
    };
    if (!stands) return rename(built, path_);
    const fs::path aside = Beside("");
    rename(built, aside);
    raw::Exchange(path_, aside, error);
    if (error == std::errc::function_not_supported) {
        // In two steps, then. What stood there is back where the second one fails.
        error.clear();
        rename(aside, built);
        rename(path_, aside);
        raw::Rename(built, path_, error);
        if (error) {
            std::error_code ignored;
            raw::Rename(aside, path_, ignored);
        }
    }
    if (error) {
        throw NativeError(Shown(path_) + ": " + Reason(error) +
                          "; what was there or was to be is in " + Shown(aside) + " or " +
                          Shown(built));
    }
    telling_.say("What stood there is now " + Shown(aside));
}

Outcome Restoration::Do(bool replace) {
    std::error_code error;
    const raw::Info there = raw::Look(path_, error);
    Check(path_, error);
    const bool stands = there.type != EntryType::kMissing;
    if (stands) {
        if (!Differs(there)) {
            telling_.say(text::ToUtf8(place_) + " is as it was backed up");
            return Outcome::kAllRight;
        }
        if (!replace) {
            telling_.say(text::ToUtf8(place_) +
                         " differs from the backup, and nothing was changed; --replace puts the "
                         "backup in its place and keeps what is there beside it");
            return Outcome::kSomething;
        }
    }
    fs::create_directories(path_.parent_path(), error);
    Check(path_.parent_path(), error);
    RemoveInterrupted();
    const fs::path built = Beside(kBuilt);
    try {
        Build(built);
    } catch (const std::exception&) {
        try {
            RemoveTree(built);
        } catch (const NativeError& failure) {
            telling_.say(string("What was built stays: ") + failure.what());
        }
        throw;
    }
    PutInPlace(built, stands);
    raw::Flush(path_.parent_path(), error);
    if (error) telling_.say("The drive does not confirm the name: " + Reason(error));
    telling_.say(FilesAndBytes(list_.items) + " brought back to " + text::ToUtf8(place_));
    return error ? Outcome::kSomething : Outcome::kAllRight;
}

}  // namespace

Outcome Restore(char drive, const string& which, bool replace, const Telling& telling) {
    const fs::path backups = BackupsFolder(drive);
    const Stored stored = Chosen(StoredIn(backups), which);
    if (!stored.whole) {
        throw errors::Error("This backup was interrupted: it cannot be brought back as a whole");
    }
    const raw::Claim claim(backups);
    if (claim.AnotherHasIt()) throw errors::Error("Another backup or restoration is running");
    return Restoration(stored, telling).Do(replace);
}

}  // namespace archive

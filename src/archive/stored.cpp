#include "archive/stored.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <memory>

#include "platform/drives.h"

namespace archive {
namespace {

using std::string;

// What a backup holds and whether it is whole.
string StateOf(const Stored& stored) {
    try {
        if (stored.whole) return FilesAndBytes(ListIn(stored).items) + "  whole";
        const auto contents = ContentsOf(
            stored.path, [](const Item& item, const fs::path&) { return item.name != kListName; });
        return FilesAndBytes(contents.items) + "  interrupted";
    } catch (const errors::Error& failure) {
        return "cannot be read: " + Said(failure);
    }
}

Outcome VerifyOne(const Stored& stored, const Telling& telling) {
    const auto say = [&](const string& line) { telling.say(Shown(stored.name) + ": " + line); };
    if (!stored.whole) {
        say("was interrupted");
        return Outcome::kSomething;
    }
    try {
        const List list = ListIn(stored);
        Progress progress(telling, WorkOf(list.items));
        const Differences found =
            Compare(stored.path, list.items, raw::From::kDisk, progress, kListName);
        found.Tell({say, telling.progress});
        if (!found.unreadable.empty()) return Outcome::kNotDone;
        if (!found.None()) return Outcome::kSomething;
        say(FilesAndBytes(list.items) + ": all right");
        return Outcome::kAllRight;
    } catch (const errors::Error& failure) {
        say("cannot be read: " + Said(failure));
        return Outcome::kNotDone;
    }
}

}  // namespace

string Stamp(std::time_t time) {
    const std::tm* const local = std::localtime(&time);
    char stamp[40] = "";
    if (local != nullptr) std::strftime(stamp, sizeof stamp, "%Y-%m-%d %H.%M.%S", local);
    return stamp;
}

bool IsStamp(const string& text) {
    static const string kForm = "0000-00-00 00.00.00";
    return text.size() == kForm.size() &&
           std::equal(text.begin(), text.end(), kForm.begin(), [](char c, char form) {
               return form == '0' ? c >= '0' && c <= '9' : c == form;
           });
}

fs::path BackupsFolder(char drive) {
    return raw::Unlimited(platform::Resolve(string(1, drive) + ":\\QVBACKUP"));
}

std::vector<Stored> StoredIn(const fs::path& folder) {
    std::vector<Stored> all;
    std::error_code error;
    const platform::native::Directory directory(folder, error);
    if (error && platform::native::IsMissing(error)) return all;
    auto entries = error ? std::vector<platform::native::Entry>() : directory.Entries(error);
    if (error) throw NativeError(folder, error);
    for (const auto& entry : entries) {
        Stored stored{folder / entry.name, Shown(entry.name), true};
        if (stored.name.size() < 21 || !IsStamp(stored.Date()) || stored.name[19] != ' ') continue;
        const auto type = raw::Look(stored.path, error).type;
        if (error) throw NativeError(stored.path, error);
        if (type != raw::EntryType::kDirectory) continue;
        if (stored.name.ends_with(kPart)) {
            stored.whole = false;
            stored.name.erase(stored.name.rfind('.'));
        }
        all.push_back(std::move(stored));
    }
    std::ranges::sort(all, {}, &Stored::name);
    return all;
}

List ListIn(const Stored& stored) {
    const fs::path path = stored.path / kListName;
    std::error_code error;
    string text;
    raw::Reader reader(path, raw::From::kDisk, error);
    const auto block = std::make_unique<raw::Block>();
    while (!error) {
        const std::size_t got = reader.Read(*block, error);
        if (got == 0) break;
        text.append(block->bytes, got);
    }
    if (error) throw NativeError(path, error);
    return ListOf(text);
}

void TellStored(char drive, const Telling& telling) {
    const auto all = StoredIn(BackupsFolder(drive));
    if (all.empty()) telling.say("There is no backup on drive " + string(1, drive));
    for (std::size_t i = 0; i < all.size(); ++i) {
        char number[24];
        std::snprintf(number, sizeof number, "%3zu", i + 1);
        telling.say(number + ("  " + all[i].Date()) + "  " + all[i].What() + "  " +
                    StateOf(all[i]));
    }
}

Stored Chosen(const std::vector<Stored>& stored, const string& which) {
    for (std::size_t i = 0; i < stored.size(); ++i) {
        if (which == std::to_string(i + 1) || which == stored[i].name) return stored[i];
    }
    throw errors::Error("There is no backup " + which + " on the drive");
}

Outcome Verify(char drive, const string& which, const Telling& telling) {
    auto all = StoredIn(BackupsFolder(drive));
    if (!which.empty()) all = {Chosen(all, which)};
    if (all.empty()) throw errors::Error("There is no backup on drive " + string(1, drive));
    Outcome outcome = Outcome::kAllRight;
    for (const Stored& stored : all) outcome = std::max(outcome, VerifyOne(stored, telling));
    return outcome;
}

}  // namespace archive

#include "archive/backup.h"

#include <algorithm>
#include <charconv>
#include <ctime>
#include <utility>

#include "app/system_config.h"
#include "archive/stored.h"
#include "text/code_page.h"
#include "text/strings.h"

namespace archive {
namespace {

using raw::EntryType;
using std::string;

void Check(const fs::path& path, const std::error_code& error) {
    if (error) throw NativeError(path, error);
}

bool IsDrive(const string& word) {
    const bool letter = !word.empty() && static_cast<char>(word[0] | 0x20) >= 'a' &&
                        static_cast<char>(word[0] | 0x20) <= 'z';
    return letter && (word.substr(1) == ":" || word.substr(1) == ":\\");
}

int NumberIn(const string& word) {
    int number = 0;
    const char* const end = word.data() + word.size();
    const auto read = std::from_chars(word.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end || number < 1) {
        throw errors::Error("--keep is to be followed by the number of backups, at least 1");
    }
    return number;
}

// Takes an option off the words at the place, if one is there.
bool TakeOption(std::vector<string>& words, std::size_t at, Job& job) {
    const string word = text::LowerCase(words[at]);
    std::size_t taken = 1;
    if (word == "/s") {
        job.below = true;
    } else if (word == "--keep") {
        taken = 2;
        job.keep = NumberIn(at + 1 < words.size() ? words[at + 1] : "");
    } else if (word.starts_with("--keep=")) {
        job.keep = NumberIn(word.substr(7));
    } else {
        return false;
    }
    const auto first = words.begin() + static_cast<std::ptrdiff_t>(at);
    words.erase(first, first + static_cast<std::ptrdiff_t>(taken));
    return true;
}

// In small letters, each character one byte; what the set lacks fits only wild cards.
string Comparable(std::string_view utf8) {
    string comparable;
    while (!utf8.empty()) {
        std::size_t length = 1;
        while (length < utf8.size() && (utf8[length] & 0xC0) == 0x80) ++length;
        const auto bytes = text::FromUtf8(utf8.substr(0, length));
        comparable += bytes && !bytes->empty() ? text::LowerChar(bytes->front()) : '\0';
        utf8.remove_prefix(length);
    }
    return comparable;
}

// The folder with its own name as it stands on the disk: the System Manager shows names in small
// letters and hands them on so, but what comes back is to be called as it was. As given where it
// cannot be found out.
string AsItStands(const string& folder, const fs::path& native) {
    const auto name = folder.rfind('\\') + 1;
    std::error_code error;
    const platform::native::Directory above(native.parent_path(), error);
    if (name == 0 || error) return folder;
    string spelled = folder;
    for (const auto& entry : above.Entries(error)) {
        const auto own = platform::native::ToSystem(entry.name);
        const bool same = own && text::EqualIgnoringCase(*own, folder.substr(name));
        // Where names differ in case only, several fit.
        std::error_code ignored;
        if (!same || !fs::equivalent(native.parent_path() / entry.name, native, ignored)) continue;
        spelled.replace(name, string::npos, *own);
    }
    return spelled;
}

// What the disk needs for it: whole blocks of files, and a share of the folders and the list.
std::uint64_t RoomFor(const std::vector<Item>& items) {
    constexpr std::uint64_t kBlock = 4096;
    std::uint64_t room = 0;
    for (const Item& item : items) {
        room += (item.info.size + kBlock - 1) / kBlock * kBlock + kBlock / 4;
    }
    return room + kBlock;
}

// One run of the command.
class Run {
  public:
    Run(const Job& job, const Telling& telling)
        : job_(job),
          telling_(telling),
          from_(raw::Unlimited(platform::Resolve(job.folder))),
          backups_(BackupsFolder(job.drive)) {}

    Outcome Do();

  private:
    void Remark(const string& line) {
        telling_.say(line);
        outcome_ = std::max(outcome_, Outcome::kSomething);
    }
    bool IsWanted(const Item& item, const fs::path& path);
    void FindRoom();
    void TakeName();
    void Copy(Progress& progress);
    void WriteList();
    void ReadBack(Progress& progress);
    void RemoveOld(const std::vector<Stored>& interrupted);

    const Job& job_;
    const Telling& telling_;
    fs::path from_, backups_, part_, whole_;
    List list_;
    Outcome outcome_ = Outcome::kAllRight;
    std::vector<Stored> interrupted_;
};

bool Run::IsWanted(const Item& item, const fs::path& path) {
    const bool inTop = item.name.find('/') == string::npos;
    if (!item.IsFolder()) {
        if (inTop && text::EqualIgnoringCase(item.name, kListName)) {
            Remark("not copied: " + Shown(item.name) + ": the list of another backup");
            return false;
        }
        return !inTop || Matches(item.name, job_.pattern);
    }
    // The backups are not backed up themselves where they lie below what is.
    std::error_code ignored;
    if (text::EqualIgnoringCase(item.name.substr(item.name.rfind('/') + 1), "QVBACKUP") &&
        fs::equivalent(path, backups_, ignored)) {
        telling_.say("not copied: " + Shown(item.name) + ": the folder of the backups");
        return false;
    }
    return job_.below;
}

void Run::FindRoom() {
    const auto available = [&] {
        std::error_code error;
        const std::uint64_t room = raw::Room(backups_, error);
        Check(backups_, error);
        return room;
    };
    const std::uint64_t needed = RoomFor(list_.items);
    // What is of no use goes first only where there is no room beside it.
    while (needed > available() && !interrupted_.empty()) {
        RemoveTree(interrupted_.back().path);
        interrupted_.pop_back();
    }
    if (needed <= available()) return;
    throw errors::Error("There is no room on drive " + string(1, job_.drive) + ": " +
                        std::to_string(needed) + " bytes are needed, " +
                        std::to_string(available()) + " are free");
}

void Run::TakeName() {
    constexpr std::size_t kLongest = 200;  // bytes, which leaves room for the date
    string what = list_.what;
    while (what.size() > kLongest) {
        do {
            what.pop_back();
        } while ((what.back() & 0xC0) == 0x80);
        if ((what.back() & 0xC0) == 0xC0) what.pop_back();
    }
    what.erase(what.find_last_not_of(" .") + 1);
    if (what.ends_with(kPart)) what += '_';
    std::error_code error;
    for (std::time_t now = std::time(nullptr);; ++now) {
        const string name = Stamp(now) + " " + what;
        whole_ = backups_ / fs::path(std::u8string(name.begin(), name.end()));
        part_ = whole_;
        part_ += kPart;
        const bool free = raw::Look(whole_, error).type == EntryType::kMissing &&
                          raw::Look(part_, error).type == EntryType::kMissing;
        Check(whole_, error);
        if (free) return;
    }
}

void Run::Copy(Progress& progress) {
    std::vector<Item> copied;
    for (Item& item : list_.items) {
        const fs::path to = item.In(part_);
        std::error_code error;
        string why;
        if (item.IsFolder()) {
            platform::native::MakeDirectory(to, error);
            Check(to, error);
            progress.Add(WorkOf(item), item.name);
            copied.push_back(std::move(item));
            continue;
        }
        const Copied what = CopyFile(item.In(from_), to, item, progress, why);
        if (what == Copied::kVanished) Remark("vanished meanwhile: " + Shown(item.name));
        if (what == Copied::kChanged) Remark("changed meanwhile: " + Shown(item.name));
        if (what == Copied::kUnreadable) {
            telling_.say("cannot be read: " + Shown(item.name) + ": " + why);
            outcome_ = Outcome::kNotDone;
        }
        const bool stored = what == Copied::kAsItWas || what == Copied::kChanged;
        if (stored) copied.push_back(std::move(item));
    }
    list_.items = std::move(copied);
}

void Run::WriteList() {
    std::error_code error;
    const fs::path path = part_ / kListName;
    raw::Info info;
    info.changed.seconds = std::time(nullptr);
    raw::Writer writer(path, info, error);
    Check(path, error);
    writer.Write(TextOf(list_), error);
    if (!error) writer.Finish(info, error);
    Check(path, error);
    // A folder's time stays only when nothing is made in it any more.
    for (auto item = list_.items.rbegin(); item != list_.items.rend(); ++item) {
        if (!item->IsFolder()) continue;
        raw::SetTime(item->In(part_), item->info.changed, error);
        Check(item->In(part_), error);
    }
    raw::Flush(part_, error);
    Check(part_, error);
}

void Run::ReadBack(Progress& progress) {
    const Differences found = Compare(part_, list_.items, raw::From::kDisk, progress, kListName);
    found.Tell(telling_);
    const bool listKept = TextOf(ListIn({part_, "", false})) == TextOf(list_);
    if (!found.None() || !listKept) {
        throw errors::Error("Drive " + string(1, job_.drive) +
                            " has not kept what was written: there is no backup");
    }
}

void Run::RemoveOld(const std::vector<Stored>& interrupted) {
    std::vector<Stored> old = interrupted;
    if (job_.keep) {
        std::vector<Stored> same;
        for (const Stored& stored : StoredIn(backups_)) {
            try {
                const bool sameFolder =
                    stored.whole && text::EqualIgnoringCase(ListIn(stored).folder, list_.folder);
                if (sameFolder) same.push_back(stored);
            } catch (const errors::Error&) {
                // Whatever it is, it is none of those that are meant.
            }
        }
        const auto kept = std::min(same.size(), static_cast<std::size_t>(*job_.keep));
        same.resize(same.size() - kept);
        for (Stored& stored : same) {
            // While it is deleted it is no whole one any more.
            fs::path going = stored.path;
            going += kPart;
            std::error_code error;
            raw::Rename(stored.path, going, error);
            Check(stored.path, error);
            telling_.say("deleted: " + Shown(stored.name));
            stored.path = going;
        }
        old.insert(old.end(), same.begin(), same.end());
    }
    for (const Stored& stored : old) RemoveTree(stored.path);
}

Outcome Run::Do() {
    Contents contents = ContentsOf(
        from_, [this](const Item& item, const fs::path& path) { return IsWanted(item, path); });
    for (const auto& [name, reason] : contents.leftOut) {
        Remark("not copied: " + Shown(name) + ": " + reason);
    }
    for (const auto& [name, reason] : contents.unreadable) {
        telling_.say("cannot be read: " + Shown(name) + ": " + reason);
        outcome_ = Outcome::kNotDone;
    }
    list_.what = text::ToUtf8(job_.What());
    list_.folder = text::ToUtf8(AsItStands(job_.folder, from_));
    list_.root = text::ToUtf8(app::TheConfig().NestRootDir);
    list_.pattern = text::ToUtf8(job_.pattern);
    list_.below = job_.below;
    list_.items = std::move(contents.items);

    std::error_code error;
    if (raw::Look(backups_, error).type == EntryType::kMissing && !error) {
        platform::native::MakeDirectory(backups_, error);
    }
    Check(backups_, error);
    const raw::Claim claim(backups_);
    if (claim.AnotherHasIt()) throw errors::Error("Another backup or restoration is running");
    interrupted_ = StoredIn(backups_);
    std::erase_if(interrupted_, [](const Stored& stored) { return stored.whole; });
    FindRoom();
    TakeName();
    try {
        Progress progress(telling_, WorkOf(list_.items) * 2);
        Copy(progress);
        WriteList();
        ReadBack(progress);
        if (outcome_ == Outcome::kNotDone) {
            telling_.say("What could be read is in " + Shown(part_) + "; it is not a whole backup");
            return outcome_;
        }
        raw::Rename(part_, whole_, error);
        Check(whole_, error);
    } catch (const std::exception&) {
        try {
            RemoveTree(part_);
        } catch (const NativeError& failure) {
            telling_.say(string("What there is of the backup stays: ") + failure.what());
        }
        throw;
    }
    raw::Flush(backups_, error);
    if (error) Remark("The drive does not confirm the name: " + Reason(error));
    telling_.say(FilesAndBytes(list_.items) + " in " + Shown(whole_));
    try {
        RemoveOld(interrupted_);
    } catch (const NativeError& failure) {
        Remark(string("not deleted: ") + failure.what());
    }
    return outcome_;
}

}  // namespace

string Job::What() const {
    if (folder.size() <= 3) return "Drive " + folder.substr(0, 1);
    const string user = folder.substr(0, 2) + app::TheConfig().NestRootDir + "\\USER";
    const std::pair<const char*, const char*> known[] = {
        {"", "All Data"}, {"\\DESIGN", "Design Data"}, {"\\PROD", "Production Data"}};
    for (const auto& [below_, name] : known) {
        if (text::EqualIgnoringCase(folder, user + below_)) return name;
    }
    return folder.substr(folder.rfind('\\') + 1);
}

Job JobOf(std::vector<string> words) {
    Job job;
    while (!words.empty() && TakeOption(words, 0, job)) {
    }
    const auto last = std::find_if(words.rbegin(), words.rend(), IsDrive);
    const auto drive = static_cast<std::size_t>(words.rend() - last);  // the one behind it
    if (drive < 2) throw errors::Error("What is to be backed up, and to which drive?");
    while (drive < words.size()) {
        if (!TakeOption(words, drive, job)) {
            throw errors::Error("\"" + words[drive] + "\" is none of /s and --keep N");
        }
    }
    job.drive = text::LowerCase(words[drive - 1])[0];
    string source;
    for (std::size_t i = 0; i + 1 < drive; ++i) source += (i == 0 ? "" : " ") + words[i];
    const auto name = source.rfind('\\') + 1;  // of the pattern; 0 where there is none
    const bool wild = source.find_first_of("*?", name) != string::npos;
    job.pattern = wild ? source.substr(name) : "*.*";
    job.folder = wild ? source.substr(0, name) : source;
    while (job.folder.ends_with('\\')) job.folder.pop_back();
    return job;
}

bool Matches(std::string_view name, std::string_view pattern) {
    // All names, those without a point, too.
    return pattern == "*.*" || text::FitsWildCards(Comparable(name), Comparable(pattern));
}

Outcome Backup(const Job& job, const Telling& telling) {
    return Run(job, telling).Do();
}

}  // namespace archive

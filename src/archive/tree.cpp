#include "archive/tree.h"

#include <algorithm>
#include <map>
#include <memory>
#include <set>

#include "archive/sha256.h"
#include "text/code_page.h"
#include "text/strings.h"

namespace archive {
namespace {

using platform::native::Directory;
using raw::EntryType;

// Names of the same characters are one text, whatever the platform keeps them in.
std::string NameOf(const fs::path& path) {
    const std::u8string name = path.u8string();
    return {name.begin(), name.end()};
}

void Walk(const fs::path& path, Item item, const Wanted& wanted, Contents& contents) {
    const std::string below = item.name.empty() ? "" : item.name + "/";
    std::error_code error;
    const Directory folder(path, error);
    auto entries = error ? std::vector<platform::native::Entry>() : folder.Entries(error);
    if (error) {
        contents.unreadable.push_back({item.name, Reason(error)});
        return;
    }
    contents.items.push_back(std::move(item));
    std::ranges::sort(entries, {}, &platform::native::Entry::name);
    for (const auto& entry : entries) {
        Item inner;
        try {
            inner.name = below + NameOf(entry.name);
        } catch (const std::exception&) {
            contents.unreadable.push_back({below + "?", "a name that is no text"});
            continue;
        }
        inner.info = raw::Look(path / entry.name, error);
        if (error) {
            contents.unreadable.push_back({inner.name, Reason(error)});
            error.clear();
        } else if (inner.info.type == EntryType::kMissing || !wanted(inner, path / entry.name)) {
            continue;
        } else if (inner.info.type == EntryType::kDirectory) {
            Walk(path / entry.name, std::move(inner), wanted, contents);
        } else if (inner.info.type == EntryType::kFile) {
            contents.items.push_back(std::move(inner));
        } else {
            const bool link = inner.info.type == EntryType::kLink;
            contents.leftOut.push_back({inner.name, link ? "a link" : "neither file nor folder"});
        }
    }
}

raw::Block& TheBlock() {
    static const auto block = std::make_unique<raw::Block>();
    return *block;
}

// Reads a file to its end, piece by piece.
std::uint64_t ReadAll(raw::Reader& reader, std::error_code& error,
                      const std::function<void(std::string_view)>& take) {
    std::uint64_t size = 0;
    while (!error) {
        const std::size_t got = reader.Read(TheBlock(), error);
        if (error || got == 0) break;
        size += got;
        take({TheBlock().bytes, got});
    }
    return size;
}

// The folder is held meanwhile, so that a link that takes its place leads no deletion elsewhere.
void RemoveIn(const Directory& parent, const fs::path& path) {
    std::error_code error;
    const raw::Info info = raw::Look(path, error);
    const auto check = [&] {
        if (error && !platform::native::IsMissing(error)) throw NativeError(path, error);
    };
    check();
    const auto remove = [&] {
        error.clear();
        if (info.type == EntryType::kDirectory) {
            parent.RemoveFolder(path.filename(), error);
        } else {
            parent.RemoveFile(path.filename(), error);
        }
    };
    const auto allow = [&] {
        // Its owner may have kept himself from changing it. Whether this helps shows below.
        std::error_code ignored;
        fs::permissions(path, fs::perms::owner_all, fs::perm_options::add, ignored);
    };
    if (info.type == EntryType::kMissing) return;
    if (info.type == EntryType::kDirectory) {
        allow();
        const Directory folder(parent, path.filename(), error);
        check();
        const auto entries = folder.Entries(error);
        check();
        for (const auto& entry : entries) RemoveIn(folder, path / entry.name);
    }
    remove();
    if (error && info.type == EntryType::kFile) {
        allow();
        remove();
    }
    check();
}

}  // namespace

NativeError::NativeError(const fs::path& path, const std::error_code& error)
    : Error(Shown(path) + ": " + Reason(error)) {}

std::string Said(const std::exception& failure) {
    const bool said = dynamic_cast<const NativeError*>(&failure) != nullptr;
    return said ? failure.what() : text::ToUtf8(failure.what());
}

std::string Reason(const std::error_code& error) {
    return text::ToUtf8(platform::native::Reason(error));
}

std::string Shown(const std::string& name) {
    return text::ShowControls(name);
}

std::string Shown(const fs::path& path) {
    std::string name;
    try {
        name = NameOf(path);
    } catch (const std::exception&) {
        return "?";  // no text
    }
    // The form without a limit is for the platform, not for a person.
    if (name.starts_with("\\\\?\\")) name.erase(0, 4);
    return Shown(name);
}

fs::path Item::In(const fs::path& top) const {
    return name.empty()
               ? top
               : (top / fs::path(std::u8string(name.begin(), name.end()))).make_preferred();
}

void Progress::Add(std::uint64_t bytes, const std::string& name) {
    done_ = std::min(done_ + bytes, total_);
    const double share = total_ == 0 ? 1 : static_cast<double>(done_) / static_cast<double>(total_);
    telling_.progress(static_cast<int>(share * 100), name);
}

std::uint64_t WorkOf(const Item& item) {
    constexpr std::uint64_t kPerItem = 1 << 12;
    return item.info.size + kPerItem;
}

std::uint64_t WorkOf(const std::vector<Item>& items) {
    std::uint64_t sum = 0;
    for (const Item& item : items) sum += WorkOf(item);
    return sum;
}

std::uint64_t BytesOf(const std::vector<Item>& items) {
    std::uint64_t sum = 0;
    for (const Item& item : items) sum += item.info.size;
    return sum;
}

std::string FilesAndBytes(const std::vector<Item>& items) {
    const auto files = std::count_if(items.begin(), items.end(),
                                     [](const Item& item) { return !item.IsFolder(); });
    const auto bytes = BytesOf(items);
    return std::to_string(files) + (files == 1 ? " file, " : " files, ") + std::to_string(bytes) +
           (bytes == 1 ? " byte" : " bytes");
}

Contents ContentsOf(const fs::path& top, const Wanted& wanted) {
    std::error_code error;
    Item item;
    // The top folder was named by the operator, so a link is followed to what he means.
    item.info = raw::Look(top, error, platform::Links::kFollow);
    if (!error && item.info.type == EntryType::kMissing) {
        error = std::make_error_code(std::errc::no_such_file_or_directory);
    }
    if (error) throw NativeError(top, error);
    Contents contents;
    Walk(top, std::move(item), wanted, contents);
    return contents;
}

Copied CopyFile(const fs::path& from, const fs::path& to, Item& item, Progress& progress,
                std::string& why, const raw::Info* as) {
    const auto unreadable = [&](const std::error_code& error) {
        why = Reason(error);
        return platform::native::IsMissing(error) ? Copied::kVanished : Copied::kUnreadable;
    };
    std::error_code error, writing;
    raw::Reader reader(from, raw::From::kMemory, error);
    if (error) return unreadable(error);
    const raw::Info before = reader.Details(error);
    if (error) return unreadable(error);
    const raw::Info& kept = as != nullptr ? *as : before;
    raw::Writer writer(to, kept, writing);
    if (writing) throw NativeError(to, writing);
    Sha256 sum;
    progress.Add(WorkOf(item) - item.info.size, item.name);
    const std::uint64_t size = ReadAll(reader, error, [&](std::string_view bytes) {
        sum.Add(bytes);
        writer.Write(bytes, writing);
        if (writing) throw NativeError(to, writing);
        progress.Add(bytes.size(), item.name);
    });
    const raw::Info after = error ? before : reader.Details(error);
    writer.Finish(kept, writing);
    if (writing) throw NativeError(to, writing);
    if (error) {
        RemoveTree(to);  // half a file is none
        return unreadable(error);
    }
    const bool same = before.size == size && after.size == size &&
                      before.changed == after.changed && before.size == item.info.size &&
                      before.changed == item.info.changed;
    item.info = before;
    item.info.size = size;
    item.checksum = sum.Hex();
    return same ? Copied::kAsItWas : Copied::kChanged;
}

void Differences::Tell(const Telling& telling) const {
    for (const auto& name : missing) telling.say("missing: " + Shown(name));
    for (const auto& name : added) telling.say("added: " + Shown(name));
    for (const auto& name : changed) telling.say("changed: " + Shown(name));
    for (const auto& [name, reason] : unreadable) {
        telling.say("cannot be read: " + Shown(name) + ": " + reason);
    }
}

Differences Compare(const fs::path& top, const std::vector<Item>& items, raw::From from,
                    Progress& progress, const std::string& ignored) {
    Differences found;
    Contents there = ContentsOf(top);
    found.unreadable = std::move(there.unreadable);
    // By name: whether it is a folder, and a link or a device as what is neither.
    std::map<std::string, const Item*> byName;
    for (const Item& item : there.items) byName[item.name] = &item;
    for (const Remark& other : there.leftOut) byName[other.name] = nullptr;
    if (!ignored.empty()) byName.erase(ignored);
    std::set<std::string> unreadable;
    for (const Remark& remark : found.unreadable) unreadable.insert(remark.name);
    for (const Item& item : items) {
        const std::string& name = item.name;
        progress.Add(WorkOf(item) - item.info.size, name);
        const auto place = byName.find(name);
        if (place == byName.end()) {
            // Also below a folder that cannot be read, which is told already.
            const bool hidden = std::any_of(
                unreadable.begin(), unreadable.end(),
                [&](const auto& u) { return u.empty() || name == u || name.starts_with(u + "/"); });
            if (!hidden) found.missing.push_back(name);
            progress.Add(item.info.size, name);
            continue;
        }
        const Item* const other = place->second;
        byName.erase(place);
        if (other == nullptr || other->IsFolder() != item.IsFolder() ||
            other->info.size != item.info.size) {
            found.changed.push_back(name);
            progress.Add(item.info.size, name);
            continue;
        }
        if (item.IsFolder()) continue;
        std::error_code error;
        raw::Reader reader(item.In(top), from, error);
        Sha256 sum;
        ReadAll(reader, error, [&](std::string_view bytes) {
            sum.Add(bytes);
            progress.Add(bytes.size(), name);
        });
        if (error) {
            found.unreadable.push_back({name, Reason(error)});
        } else if (sum.Hex() != item.checksum) {
            found.changed.push_back(name);
        }
    }
    for (const auto& [name, item] : byName) found.added.push_back(name);
    return found;
}

void RemoveTree(const fs::path& path) {
    std::error_code error;
    const Directory parent(path.parent_path(), error);
    if (error) throw NativeError(path, error);
    RemoveIn(parent, path);
}

}  // namespace archive

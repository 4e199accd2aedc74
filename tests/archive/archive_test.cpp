// Backups and what is brought back from them: byte for byte, whatever happens meanwhile.
#include <gtest/gtest.h>

#include <random>

#include "archive/sha256.h"
#include "tests/archive/archive_fixture.h"
#include "text/code_page.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace archive {
namespace {

TEST(Sha256, IsTheStandards) {
    const auto hex = [](const string& bytes, std::size_t piece, Sha256::Way way) {
        Sha256 sum(way);
        for (std::size_t at = 0; at < bytes.size(); at += piece) sum.Add(bytes.substr(at, piece));
        return sum.Hex();
    };
    const std::pair<string, const char*> cases[] = {
        {"abc", "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
        {string(1000000, 'a'), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0"}};
    for (const auto& [bytes, expected] : cases) {
        for (const std::size_t piece : {1, 63, 64, 1000}) {
            EXPECT_EQ(hex(bytes, piece, Sha256::Way::kFastest), expected);
            EXPECT_EQ(hex(bytes, piece, Sha256::Way::kPlain), expected);
        }
    }
}

TEST_F(Archive, WordsOfABackup) {
    const std::pair<const char*, const char*> cases[] = {
        {"c:\\tolvarin\\USER\\PROD\\my job\\*.* a: /s",
         "c:\\tolvarin\\USER\\PROD\\my job|*.*|a|below|0|my job"},
        {"c:\\a b\\c: d\\x a: B:\\ /S --keep 3", "c:\\a b\\c: d\\x a:|*.*|b|below|3|x a:"},
        {"c:\\a\\?.dat b:", "c:\\a|?.dat|b||0|a"},
        {"--keep=2 c:\\TOLVARIN\\user\\*.ds? a:", "c:\\TOLVARIN\\user|*.ds?|a||2|All Data"},
        {"c:\\tolvarin\\USER\\DESIGN A:", "c:\\tolvarin\\USER\\DESIGN|*.*|a||0|Design Data"},
        {"d:\\tolvarin\\USER\\prod\\* e:", "d:\\tolvarin\\USER\\prod|*|e||0|Production Data"},
        {"c:\\*.* e: /s", "c:|*.*|e|below|0|Drive c"},
        {"c:\\a a: /x", "\"/x\" is none of /s and --keep N"},
        {"c:\\a a: --keep 0", "--keep is to be followed by the number of backups, at least 1"},
        {"a: /s", "What is to be backed up, and to which drive?"},
        {"", "What is to be backed up, and to which drive?"}};
    for (const auto& [words, expected] : cases) {
        std::istringstream stream(words);
        string got;
        try {
            const Job job = JobOf({std::istream_iterator<string>(stream), {}});
            got = job.folder + "|" + job.pattern + "|" + job.drive + "|" +
                  (job.below ? "below" : "") + "|" + std::to_string(job.keep.value_or(0)) + "|" +
                  job.What();
        } catch (const errors::Error& failure) {
            got = failure.what();
        }
        EXPECT_EQ(got, expected) << words;
    }
    const std::tuple<const char*, const char*, bool> names[] = {
        {"a", "*.*", true},          {"A.DSN", "*.dsn", true},       {"a.dsn2", "*.dsn", false},
        {"\xC3\x84.x", "?.X", true}, {"\xC3\xA4", "\xC3\x84", true}, {"\xD0\x96", "?", true},
        {"ab", "?", false},          {"aab", "a*b", true},           {"", "*", true},
        {"abc", "*b", false}};
    for (const auto& [name, pattern, fits] : names) EXPECT_EQ(Matches(name, pattern), fits) << name;
    const string many(250, 'a');
    EXPECT_FALSE(Matches(many, "*a*a*a*a*a*a*a*a*a*a*a*a*a*b"));
}

TEST_F(Archive, AListIsReadOnlyWhole) {
    List list{"my job", kPlace, "\\tolvarin", "*.*", true, {}};
    using raw::EntryType;
    const auto add = [&](const char* name, EntryType type, std::uint64_t size, raw::Time time,
                         const char* rights) {
        const bool folder = type == EntryType::kDirectory;
        list.items.push_back({name, {type, size, time, rights}, folder ? "" : string(64, 'e')});
    };
    add("", EntryType::kDirectory, 0, {-1, 5}, "m755");
    add("\xC3\xA4 b", EntryType::kDirectory, 0, {1, 999999999}, "");
    add("\xC3\xA4 b/x", EntryType::kFile, 18446744073709551615u, {0, 0}, "aR");
    // Those of years ago are still read.
    const string text = TextOf(list), e(64, 'e');
    const std::size_t sealed = text.find("# end ");
    EXPECT_EQ(text.substr(0, sealed),
              "# Quarvel backup 1; sha256sum -c reads this file\n"
              "# what my job\n# folder c:\\tolvarin\\USER\\PROD\\my job\n# root \\tolvarin\n"
              "# files *.*\n# below yes\n# d 0 -1.000000005 m755 .\n"
              "# d 0 1.999999999 - \xC3\xA4 b\n# f 18446744073709551615 0.000000000 aR \n" +
                  e + "  \xC3\xA4 b/x\n");
    EXPECT_EQ(TextOf(ListOf(text)), text);
    const auto fault = [](const string& other) {
        try {
            ListOf(other);
        } catch (const NativeError& failure) {
            return string(failure.what());
        }
        return string("none");
    };
    std::set<string> faults;
    for (std::size_t at = 0; at < text.size(); ++at) {
        string other = text;
        other[at] = static_cast<char>(other[at] ^ 1);
        faults.insert({fault(other), fault(text.substr(0, at))});
    }
    const string list_ = "QVBACKUP.LST: ";
    EXPECT_EQ(faults, (std::set{list_ + "it is cut off", list_ + "it is cut off or was changed",
                                list_ + "it is no list of a backup"}));
    // Sealed, and yet nothing to be followed.
    const std::tuple<const char*, const char*, string> lines[] = {
        {"# root", "# rood", "a line is not as it should be"},
        {"\n# d 0 1", "\n# x 0 1", "a line is not as it should be"},
        {" aR \n", "\n", "a line is not as it should be"},
        {"ee  ", "ee ", "a line is not as it should be"},
        {"1.999", "1x.999", "a number is none"},
        {"1.999999999", "1.1000000000", "a time is none"},
        {"0.000000000", "0.-1", "a time is none"},
        {"\xC3\xA4 b\n", "a\\b\n", "a name is none"},
        {"\xC3\xA4 b\n", ".\n", "\".\" cannot be a name here"},
        {" b/x", " b", "it names \xC3\xA4 b twice"}};
    for (const auto& [from, to, why] : lines) {
        string other = text.substr(0, sealed);
        other.replace(other.find(from), string(from).size(), to);
        Sha256 sum;
        sum.Add(other);
        EXPECT_EQ(fault(other + "# end " + sum.Hex() + "\n"), list_ + why);
    }
    for (const char* name : {"../x", "a/../../x", "/x", "a//b", "a/", ".", "a/.", "x/..", ""}) {
        list.items.resize(3);
        add(name, EntryType::kFile, 0, {}, "");
        EXPECT_EQ(fault(TextOf(list)), list_ + "\"" + name + "\" cannot be a name here");
    }
#ifndef _WIN32
    list.items.back().name = "a\nb\\c\r";
    EXPECT_EQ(ListOf(TextOf(list)).items.back().name, "a\nb\\c\r");
#endif
    EXPECT_EQ(Shown(fs::path("\\\\?\\c:\\a\x1B\x7F")), "c:\\a\\x1B\\x7F");
}

// On Windows what is backed up stays below the limit of other programs' paths; the backup does not.
#ifdef _WIN32
constexpr std::size_t kWide = 140, kLongest = 240;
#else
constexpr std::size_t kWide = 200, kLongest = 900;
#endif

TEST_F(Archive, BringsBackRandomTrees) {
    std::mt19937 random(7);
    std::vector<string> names{string(kWide, 'n'), "M\xC3\xBCller & S\xC3\xB6hne"};
    names.insert(names.end(),
                 {"a", " b c", "x.DSN", "%TEMP%", "\xD0\x96\xE2\x82\xAC", "-s", "c;d"});
#ifndef _WIN32
    names.insert(names.end(), {"a\nb\\c", "*.*", "tab\t:", "\xFF no text", "end ."});
#endif
    for (int round = 0; round < 6; ++round) {
        const fs::path top = drives.Path(kPlace);
        RemoveTree(top);
        std::vector<fs::path> folders{top};
        fs::create_directory(top);
        for (int n = 0; n < 60; ++n) {
            const string& name = names[random() % names.size()];
            fs::path path = folders[random() % folders.size()] /
                            fs::path(std::u8string(name.begin(), name.end()));
            if (path.native().size() > kLongest || fs::exists(path)) continue;
            if (random() % 3 == 0) {
                fs::create_directory(path);
                folders.push_back(path);
                continue;
            }
            const std::size_t sizes[] = {0, 1, 4096, random() % 100000, raw::Block::kSize};
            std::ofstream(path, std::ios::binary) << string(sizes[random() % 5], char(random()));
            if (random() % 4 == 0) fs::permissions(path, fs::perms::owner_read);
        }
        SetTimes();
        const Tree before = Place();
        Expect(DoBackup(), kAllRight);
        const string name = All().back().name;
        Expect(DoVerify(name), kAllRight);
        Tree stored = TreeIn(All().back().path);
        stored.erase(kListName);
        Tree plain = before;  // its owner may write in it
        for (Tree* tree : {&stored, &plain})
            for (auto& [name_, state] : *tree) state.erase(0, state.find(' '));
        EXPECT_TRUE(stored == plain);
        Expect(DoRestore(name, false), kAllRight, "..is as it was backed up..");
        RemoveTree(top);
        Expect(DoRestore(name, false), kAllRight);
        EXPECT_EQ(Place(), before);
    }
    RemoveTree(BackupsFolder('d'));
    EXPECT_EQ(drives.Count("d:\\"), 0);
}

TEST_F(Archive, ReplacesOnlyWhenAskedAndKeepsWhatWasThere) {
    Expect(DoVerify(), kNotDone, "There is no backup on drive d");
    MakeJob("old");
    const Tree backedUp = Place();
    Expect(DoBackup(), kAllRight);
    drives.Write(kPlace + "\\MATERIAL.DAT", "newer");
    drives.Write(kPlace + "\\COMP\\b", "");
    fs::remove(drives.Path(kPlace + "\\TAPE"));
    const Tree later = Place();
    for (const char* other : {"my job 2", "x.restoring", "my job old.restoring"}) {
        drives.MakeDir(string("c:\\tolvarin\\USER\\PROD\\") + other);
    }
    // A drive may keep coarser times; those of the list count.
    std::error_code error;
    raw::SetTime(All().at(0).path / "MATERIAL.DAT", {1, 0}, error);
    Expect(DoRestore("1", false), kSomething,
           "missing: TAPE\nadded: COMP/b\nchanged: MATERIAL.DAT\n"
           "c:/tolvarin/USER/PROD/my job differs from the backup, and nothing was changed; "
           "--replace puts the backup in its place and keeps what is there beside it\n");
    EXPECT_EQ(Place(), later);
    for (int times = 1; times <= 2; ++times) {
        Expect(DoRestore("1", true), kAllRight,
               "..\nWhat stood there is now <drives>/c/tolvarin/USER/PROD/my job <time>\n"
               "2 files, 4 bytes brought back to c:/tolvarin/USER/PROD/my job\n");
        EXPECT_EQ(Place(), backedUp);
        ASSERT_EQ(drives.Count("c:\\tolvarin\\USER\\PROD"), 4 + times);
        drives.Write(kPlace + "\\COMP\\b", "");  // the second one cannot wait for a new date
    }
    fs::remove_all(drives.Path(kPlace));
    bool kept = false;
    for (const auto& entry : fs::directory_iterator(drives.Path("c:\\tolvarin\\USER\\PROD"))) {
        kept = kept || TreeIn(entry) == later;
    }
    EXPECT_TRUE(kept);
    // On an installation with another root it belongs below that.
    app::TheConfig().NestRootDir = "\\nest";
    Expect(DoRestore("1", false), kAllRight);
    EXPECT_EQ(TreeIn(drives.Path("c:\\nest\\USER\\PROD\\my job")), backedUp);
    drives.Write("c:\\tolvarin\\USER\\PROD\\my job", "a file");
    app::TheConfig().NestRootDir = "\\tolvarin";
    Expect(DoRestore("1", false), kSomething,
           "something else than a folder stands in its place\n..");
    Expect(DoRestore("1", true), kAllRight);
    for (const char* none : {"0", "2", "x", "01"}) Expect(DoRestore(none, true), kNotDone);
}

TEST_F(Archive, WhatIsCopiedAndWhatIsTold) {
    MakeJob("x");
    drives.Write(kPlace + "\\b.dat", "b");
    drives.Write(kPlace + "\\qvbackup.lst", "mine");
    const auto names = [&] {
        const List list = ListIn(All().back());
        string all = list.pattern + (list.below ? " below" : "");
        for (const Item& item : list.items) all += item.name + " ";
        return all;
    };
    Expect(DoBackup(kPlace + "\\mat*.dat d:"), kSomething,
           "not copied: qvbackup.lst: the list of another backup\n"
           "1 file, 1 byte in <drives>/d/QVBACKUP/<time> my job\n");
    EXPECT_EQ(names(), "mat*.dat MATERIAL.DAT ");
    fs::remove(drives.Path(kPlace + "\\qvbackup.lst"));
    DoBackup(kPlace + "\\b* d: /s");
    EXPECT_EQ(names(), "b* below COMP COMP/a TAPE b.dat ");
    DoBackup("c: c: /s");
    DoBackup("c: c: /s");
    EXPECT_TRUE(Told().starts_with("not copied: QVBACKUP: the folder of the backups\n")) << said;
    Expect(DoBackup("c:\\missing\\*.* d: /s"), kNotDone);
    Expect(DoBackup(kPlace + "\\*.* x: /s"), kNotDone);
    {
        const raw::Claim claim(BackupsFolder('d'));
        Expect(DoBackup(), kNotDone, "Another backup or restoration is running");
        Expect(DoRestore("1", true), kNotDone, "Another backup or restoration is running");
    }
    // Deleted are only whole ones of the same folder.
    Expect(DoBackup(), kAllRight);
    drives.Write("d:\\QVBACKUP\\2020-01-01 00.00.00 my job\\x", "no list");
    drives.Write("d:\\QVBACKUP\\2020-01-01 00.00.00 my job.part\\x", "");
    drives.Write("d:\\QVBACKUP\\mine.part\\x", "");
    drives.Write("d:\\tolvarin\\USER\\PROD\\my job\\x", "another drive's");
    Expect(DoBackup("d:\\tolvarin\\USER\\PROD\\my job\\*.* d: /s"), kAllRight);
    EXPECT_EQ(All().size(), 5u);  // without the interrupted one
    Expect(DoBackup(kPlace + "\\*.* d: --keep 2 /s"), kAllRight,
           "..\ndeleted: <time> my job\ndeleted: <time> my job\n");
    EXPECT_EQ(All().size(), 4u);
    EXPECT_TRUE(drives.Exists("d:\\QVBACKUP\\mine.part\\x"));
    Expect(DoVerify(), kNotDone);  // that without a list
    TellStored('d', telling);
    for (const char* told :
         {"<time> my job: cannot be read: <drives>/d/QVBACKUP/<time> my job/QVBACKUP.LST: ",
          "<time> my job: 1 file, 15 bytes: all right\n", "  1  <time>  my job  cannot be read: ",
          "  2  <time>  my job  3 files, 3 bytes  whole\n"}) {
        EXPECT_NE(Told().find(told), string::npos) << told << Told();
    }
    drives.Write("c:\\x.part\\a", "a");
    Expect(DoBackup("c:\\x.part d:"), kAllRight);
    for (const Stored& stored : All()) EXPECT_TRUE(stored.whole) << stored.name;
    // A name that is too long is cut between two letters.
    const string letters(101, '\xFC'), longest = text::ToUtf8(letters.substr(1));
    drives.Write("c:\\" + letters + "\\a", "a");
    Expect(DoBackup("c:\\" + letters + " d:"), kAllRight, ".. " + longest + "\n");
    // Changes while it is copied.
    int calls = 0;
    meanwhile = [&](int, const string&) {
        if (++calls != 1) return;
        drives.Write(kPlace + "\\b.dat", "longer");
        fs::remove(drives.Path(kPlace + "\\MATERIAL.DAT"));
    };
    Expect(DoBackup(), kSomething,
           "vanished meanwhile: MATERIAL.DAT\nchanged meanwhile: b.dat\n..");
    const auto latest = [&] { return said.substr(said.find_last_of("/\\") + 1, 26); };
    const string name = latest(), longer = Place().at("b.dat");
    Expect(DoVerify(name), kAllRight);
    RemoveTree(drives.Path(kPlace));
    Expect(DoRestore(name, false), kAllRight);
    EXPECT_EQ(Place().at("b.dat"), longer);
    // The drive is drawn out.
    meanwhile = [&, to = drives.Path("d:\\QVBACKUP")](int, const string&) {
        if (fs::exists(to)) fs::rename(to, drives.Path("d:\\gone"));
    };
#ifndef _WIN32  // where a drive in use is not renamed
    const auto before = drives.Count("d:\\QVBACKUP");
    Expect(DoBackup(), kNotDone, "What there is of the backup stays: ..");
    EXPECT_EQ(drives.Count("d:\\gone"), before + 1);
    meanwhile = {};
    fs::create_directory_symlink("COMP", drives.Path(kPlace + "\\link"));
    mkfifo(drives.Path(kPlace + "\\pipe").c_str(), 0600);
    Expect(DoBackup(), kSomething, "not copied: link: a link\nnot copied: pipe: neither..");
    fs::rename(drives.Path(kPlace + "\\link"), drives.Path(kPlace + "\\b.dat"));
    Expect(DoRestore(latest(), false), kSomething, "added: pipe\nchanged: b.dat\nc:..");
#endif
}

TEST_F(Archive, EveryChangedBitIsFound) {
    MakeJob(string(3000, 'm'));
    Expect(DoBackup("c: d: /s"), kAllRight);
    Expect(DoRestore("1", true), kNotDone,
           "A whole drive cannot be brought back at once; its files are in the backup as files");
    RemoveTree(All().at(0).path);
    Expect(DoBackup(), kAllRight);
    fs::remove_all(drives.Path(kPlace));
    const fs::path stored = All().at(0).path;
    const std::tuple<const char*, std::streamoff, Outcome, const char*> cases[] = {
        {"MATERIAL.DAT", 2999, kSomething, "changed: MATERIAL.DAT"},
        {"COMP/a", 0, kSomething, "changed: COMP/a"},
        {kListName, 100, kNotDone, "it is cut off or was changed"}};
    for (const auto& [name, at, outcome, told] : cases) {
        const auto flip = [&, at_ = at, path = (stored / name).make_preferred()] {
            std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
            file.seekg(at_);
            const int byte = file.get();
            file.seekp(at_);
            file.put(static_cast<char>(byte ^ 4));
        };
        flip();
        EXPECT_EQ(DoVerify("1"), outcome) << name;
        EXPECT_NE(said.find(told), said.npos) << said;
        EXPECT_EQ(DoRestore("1", true), kNotDone) << name;
        EXPECT_TRUE(outcome == kNotDone || said.ends_with("is not what was backed up"));
        EXPECT_EQ(drives.Count("c:\\tolvarin\\USER\\PROD"), 0);
        flip();
    }
    fs::path part = stored;
    fs::rename(stored, part += kPart);
    Expect(DoRestore("1", true), kNotDone,
           "This backup was interrupted: it cannot be brought back as a whole");
    Expect(DoVerify("1"), kSomething);
    TellStored('d', telling);
    EXPECT_EQ(Told(),
              "<time> my job: was interrupted\n"
              "  1  <time>  my job  2 files, 3001 bytes  interrupted\n");
    fs::rename(part, stored);
    fs::rename(stored / "COMP", stored / "OTHER");
    Expect(DoVerify(), kSomething,
           "..missing: COMP\n<time> my job: missing: COMP/a\n<time> my job: added: OTHER\n..");
    Expect(DoRestore("1", true), kNotDone, "<drives>/d/QVBACKUP/<time> my job/COMP/a: ..");
    // A list that tells of more than there is room for.
    List list = ListIn(All().at(0));
    std::ofstream(stored / kListName, std::ios::binary)
        << TextOf({"x", "c:\\\xD0\x96", "", "*", true, {}});
    Expect(DoRestore("1", true), kNotDone, "Where the backup came from is no path here");
    list.items.back().info.size = std::uint64_t{1} << 60;
    std::ofstream(stored / kListName, std::ios::binary) << TextOf(list);
    Expect(DoRestore("1", true), kNotDone,
           "There is no room beside c:/tolvarin/USER/PROD/my job: 11529..");
}

TEST_F(Archive, WhatTheDiskHasNotKeptIsFound) {
    MakeJob("old");
    Expect(DoBackup(), kAllRight);
    drives.Write(kPlace + "\\MATERIAL.DAT", "new");
    // What is copied first is another when the last file is copied.
    const auto damage = [&](const string& folder, const char* end) {
        meanwhile = [&, folder, end](int percent, const string& name) {
            if (percent >= 50 || name != "MATERIAL.DAT") return;
            for (const auto& entry : fs::directory_iterator(drives.Path(folder))) {
                if (entry.path().extension() != end) continue;
                std::ofstream(entry.path() / "COMP" / "a", std::ios::binary) << "b";
            }
        };
    };
    damage("d:\\QVBACKUP", ".part");
    Expect(DoBackup(), kNotDone,
           "changed: COMP/a\nDrive d has not kept what was written: there is no backup");
    EXPECT_EQ(drives.Count("d:\\QVBACKUP"), 1);
    damage("c:\\tolvarin\\USER\\PROD", ".restoring");
    Expect(DoRestore("1", true), kNotDone, "..has not kept what was written..");
    EXPECT_EQ(drives.Read(kPlace + "\\MATERIAL.DAT"), "new");
    EXPECT_EQ(drives.Count("c:\\tolvarin\\USER\\PROD"), 1);
    // And what another program changes between two pieces, even at the same size.
    drives.Write(kPlace + "\\MATERIAL.DAT", string(2 * raw::Block::kSize, 'x'));
    SetTimes();
    int pieces = 0;
    meanwhile = [&](int, const string& name) {
        if (name != "MATERIAL.DAT" || ++pieces != 2) return;
        drives.Write(kPlace + "\\MATERIAL.DAT", string(2 * raw::Block::kSize, 'y'));
    };
    Expect(DoBackup(), kSomething, "changed meanwhile: MATERIAL.DAT\n..");
}

}  // namespace
}  // namespace archive

// Profile files that a careful reader and a careless one take differently, for comparisons.
#pragma once

#include <string>
#include <vector>

namespace profile {

struct Name {
    std::string section;
    std::string key;
};

// Files that a person, another program or a broken disk leaves behind.
inline const std::vector<std::string>& AwkwardFiles() {
    using namespace std::string_literals;
    static const std::vector<std::string> files = {
        "",
        "\r\n\r\r\n",
        "[s]\r\nk=v",
        "[]\r\nk=v\r\n",
        "[ s\t]\r\n\tk\t = \tv\t \r\n",
        "\x0B\x0C[\x0Bs\x1A]\x1A\r\nk\x0C=\x0Bv\x1A\r\n\x1A",
        "[s\r\nk=v\r\n",
        "[t]\r\nk=1\r\n[s\r\nk=v\r\nm=2\r\n",
        "[t]\r\n[s=1\r\n[k=2]\r\nm=3\r\n",
        "[s]]\r\nk=v\r\n[[s]\r\nk=w\r\n[[s]]\r\nk=x\r\n",
        "[s] x]\r\nk=v\r\n[s] y\r\nk=w\r\n",
        "[s]k=v\r\n",
        "]s[\r\nk=v\r\n",
        "[s]\r\nk= \"v\" \r\nm=' v '\r\n",
        "[s]\r\nk=\"\"v\"\"\r\nm='v\"\r\n",
        "[s]\r\nk='\"v\"'\r\nm=\"v\" w\r\n",
        "[s]\r\n\"k\"=v\r\n",
        "[s]\r\n=v\r\n==w\r\n",
        "[s]\r\nk=a=b=\r\nm==\r\n",
        "[s]\r\nk=\r\nm= \t\r\n",
        "[s]\r\nk=a;b\r\n;k=1\r\n ;m=2\r\n;[t]\r\nm=;3\r\n",
        "[s]\r\nk=1\r\nk=2\r\n[s]\r\nk=3\r\nm=4\r\n",
        "[s]\r\n[t]\r\nk=1\r\n[s]\r\nk=3\r\n",
        "[s]\r\r\nk=1\n\rm=2\r",
        "[s]\r\nk=v\x85w\xA0\r\nm=\xA0v\r\n\xA0k=x\r\n",
        "[\xE9]\r\n\xFC=\xE9\x80\x81\x8D\xFF\r\n",
        "\xEF\xBB\xBF[s]\r\nk=v\r\n",
        "\xEF\xBB\xBFk=v\r\n",
        "\xFF\xFE[\0s\0]\0\r\0\n\0k\0=\0\xE9\0\xAC\x20\r\0\n\0m"s,
        "\xFE\xFF\0[\0s\0]\0\r\0\n\0k\0=\0\xE9\x20\xAC"s,
        "[s]\r\nk=a\0b\r\nm=2\r\n"s,
        "[s]\r\nk=\"a\"\0\r\nm=\"a\0b\"\r\n"s,
        "[s]\r\nk=a \0\r\nm=\0 a\r\n"s,
        "[s]\r\nk\0=1\r\nm\0x=2\r\n"s,
        "[s]\r\nk \0=1\r\n\0m=2\r\n"s,
        "[s\0x]\r\nk=1\r\n"s,
        "[s\0]x]\r\nk=1\r\n[t \0]\r\nk=2\r\n"s,
        "\0[s]\r\nk=1\r\n[\0s]\r\nk=2\r\n"s,
        std::string(600, '\0') + "\r\n[s]\r\nk=1",
        "[s]\r\nk=" + std::string(253, 'v') + "\r\nm=" + std::string(254, 'w') + "\r\n",
        "[s]\r\nk=\"" + std::string(253, 'v') + "\"\r\nm=" + std::string(255, 'w') + "\r\n",
        "[s]\r\nk=" + std::string(70000, 'v') + "\r\nm=1\r\n" + std::string(70000, 'k') + "=2",
        "[" + std::string(70000, 's') + "]\r\nk=1\r\n[t]\r\nk=2",
        std::string(70000, '\r') + "[s]\rk=1" + std::string(70000, ' '),
    };
    return files;
}

// Names to ask all of them for.
inline const std::vector<Name>& Names() {
    static const std::vector<Name> names = {
        {"s", "k"},     {"s", "m"},       {"S", "K"},    {" s\t", "\tk "}, {"s\r", "\nm\x1A"},
        {"t", "k"},     {"t", "m"},       {"", "k"},     {"", "m"},        {" ", "k"},
        {"s", ""},      {"s", "=w"},      {"s]", "k"},   {"[s", "k"},      {"[s]", "k"},
        {"s] x", "k"},  {"t", "[s"},      {"s", "[k"},   {"k=2", "m"},     {"s", "\"k\""},
        {"s", "\xA0k"}, {"\xE9", "\xFC"}, {"s", "\xE9"}, {"none", "none"},
    };
    return names;
}

}  // namespace profile

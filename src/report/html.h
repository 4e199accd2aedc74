// HTML and SVG, written one after the other. Whatever is put in is escaped; the tags close
// themselves, so that the page is well-formed XML, too, and any reader of that can check it.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace report {

// What stands in a page: data in the system's character set, own words in UTF-8, or a number.
class Words {
  public:
    // Bytes of data, in which a control character is shown as its code: \x01.
    Words(const std::string& data);
    Words(const char* data) : Words(std::string(data)) {}
    Words(std::u8string_view own) : utf8_(own.begin(), own.end()) {}
    Words(const char8_t* own) : Words(std::u8string_view(own)) {}
    // A coordinate: at most two decimals, with a point.
    Words(double number);
    Words(int number) : utf8_(std::to_string(number)) {}
    Words(std::size_t number) : utf8_(std::to_string(number)) {}

    const std::string& Utf8() const { return utf8_; }
    Words& operator+=(const Words& other) {
        utf8_ += other.utf8_;
        return *this;
    }
    friend Words operator+(Words a, const Words& b) { return a += b; }

  private:
    std::string utf8_;
};

class Html {
  public:
    struct Attribute {
        const char* name;
        Words value;
    };
    using Attributes = std::initializer_list<Attribute>;

    // An element as long as this lives.
    class [[nodiscard]] Element {
      public:
        Element(Html& html, const char* name) : html_(html), name_(name) {}
        ~Element() { html_.End(name_); }
        Element(const Element&) = delete;
        Element& operator=(const Element&) = delete;

      private:
        Html& html_;
        const char* name_;
    };
    Element In(const char* name, Attributes attributes = {});

    // An element with a text in it, and one that is empty: a shape, a line break.
    void Put(const char* name, Attributes attributes, const Words& text);
    void Put(const char* name, const Words& text) { Put(name, {}, text); }
    void Empty(const char* name, Attributes attributes = {});
    void Text(const Words& text) {
        BreakLine();
        Escape(text.Utf8());
    }
    // With the unit it is in, small behind it; none where that is empty.
    void TextIn(const Words& text, const Words& unit);

    // The one thing that is not escaped, because browsers would not undo it; without < and &.
    void Style(const char* css);

    const std::string& Bytes() const { return bytes_; }

  private:
    void Begin(const char* name, Attributes attributes, const char* end);
    void End(std::string_view name);
    void BreakLine();
    void Escape(std::string_view utf8);

    bool lineIsDone_ = false;
    std::string bytes_ = "<!DOCTYPE html>\n";
};

}  // namespace report

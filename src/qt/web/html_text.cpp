// SPDX-License-Identifier: MIT
// Reads a page once from left to right. Pages are hostile: a search that fails is not repeated, so that
// the time stays linear.
#include "qt/web/html_text.h"

#include <algorithm>
#include <array>
#include <optional>

#include "platform/text.h"

namespace requite {
namespace {

constexpr std::size_t kLongestLine = 4096;
constexpr std::size_t kLongestEntity = 10;

struct Entity {
  std::string_view Name;
  unsigned Code;
  char Character;
};
/// The common ones; other characters of the code page are written by number.
constexpr std::array<Entity, 18> kEntities{{{"amp", 38, '&'},
                                            {"lt", 60, '<'},
                                            {"gt", 62, '>'},
                                            {"quot", 34, '"'},
                                            {"apos", 39, '\''},
                                            {"nbsp", 160, ' '},
                                            {"copy", 169, '\xA9'},
                                            {"reg", 174, '\xAE'},
                                            {"euro", 8364, '\x80'},
                                            {"hellip", 8230, '\x85'},
                                            {"lsquo", 8216, '\x91'},
                                            {"rsquo", 8217, '\x92'},
                                            {"ldquo", 8220, '\x93'},
                                            {"rdquo", 8221, '\x94'},
                                            {"bull", 8226, '\x95'},
                                            {"ndash", 8211, '\x96'},
                                            {"mdash", 8212, '\x97'},
                                            {"trade", 8482, '\x99'}}};

/// These begin and end a line; paragraphs and headings also leave an empty one.
constexpr std::array<std::string_view, 26> kBlocks{
    "address", "article", "aside",    "blockquote", "body",  "caption", "center", "dd", "div",
    "dl",      "dt",      "fieldset", "footer",     "form",  "header",  "hr",     "li", "main",
    "nav",     "ol",      "pre",      "section",    "table", "title",   "tr",     "ul"};

char LowerOf(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
bool IsLetter(char c) { return LowerOf(c) >= 'a' && LowerOf(c) <= 'z'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsBlank(char c) { return static_cast<unsigned char>(c) <= ' ' || c == '\x7F'; }

std::optional<char> CharacterOf(unsigned code) {
  if ((code >= 32 && code < 127) || (code > 160 && code < 256)) return static_cast<char>(code);
  for (const Entity& entity : kEntities) {
    if (entity.Code == code) return entity.Character;
  }
  return std::nullopt;
}

/// `entity` without "&" and ";".
std::optional<char> Decoded(std::string_view entity) {
  if (!entity.starts_with('#')) {
    for (const Entity& known : kEntities) {
      if (known.Name == entity) return known.Character;
    }
    return std::nullopt;
  }
  const bool hexadecimal = entity.size() > 1 && LowerOf(entity[1]) == 'x';
  unsigned code = 0;
  for (const char c : entity.substr(hexadecimal ? 2 : 1)) {
    const char lower = LowerOf(c);
    const bool letter = hexadecimal && lower >= 'a' && lower <= 'f';
    if (!letter && !IsDigit(c)) return std::nullopt;
    const int digit = letter ? lower - 'a' + 10 : c - '0';
    code = code * (hexadecimal ? 16U : 10U) + static_cast<unsigned>(digit);
    if (code > 0x10FFFF) return std::nullopt;
  }
  return CharacterOf(code);
}

class PageReader {
 public:
  PageReader(std::string_view page, std::size_t limit) : page_(page), limit_(limit) {}

  HtmlText Read() {
    while (at_ < page_.size() && !result_.Cut) {
      const char c = page_[at_];
      if (c == '<' && SkipMarkup()) continue;
      if (c == '&' && ReadEntity()) continue;
      ++at_;
      if (IsBlank(c)) {
        blank_ = true;
      } else {
        Add(c);
      }
    }
    return std::move(result_);
  }

 private:
  /// Moves past a comment, a tag, or an element without text. False at a "<" that is text.
  bool SkipMarkup() {
    if (page_.substr(at_).starts_with("<!--")) return SkipTo("-->", noComment_);
    const char next = at_ + 1 < page_.size() ? page_[at_ + 1] : ' ';
    if (next == '!' || next == '?') return SkipTo(">", noTag_);
    const std::size_t begin = at_ + (next == '/' ? 2 : 1);
    std::size_t end = begin;
    while (end < page_.size() && (IsLetter(page_[end]) || IsDigit(page_[end]))) ++end;
    if (end == begin || !IsLetter(page_[begin])) return false;
    const std::string name = Lower(page_.substr(begin, std::min(end - begin, std::size_t{12})));
    if (!SkipTo(">", noTag_)) return false;
    const bool closes = next == '/';
    if (!closes || name != "li") BreakFor(name);  // the end of an item needs no new line
    if (closes) return true;
    if (name == "script") SkipTo("</script", noScriptEnd_, 0);
    if (name == "style") SkipTo("</style", noStyleEnd_, 0);
    if (name == "title") SkipTo("</title", noTitleEnd_, 0);
    return true;
  }

  void BreakFor(const std::string& tag) {
    if (tag == "br") ++lines_;
    if (tag == "p" || (tag.size() == 2 && tag[0] == 'h' && IsDigit(tag[1]))) lines_ = 2;
    if (std::find(kBlocks.begin(), kBlocks.end(), tag) != kBlocks.end()) lines_ = std::max(lines_, 1);
    if (tag == "td" || tag == "th") blank_ = true;
  }

  bool SkipTo(std::string_view end, bool& none) { return SkipTo(end, none, end.size()); }

  /// Moves to the next `end`, in any letter case, and `past` bytes beyond. False, and remembered in `none`,
  /// when the rest of the page has no such end.
  bool SkipTo(std::string_view end, bool& none, std::size_t past) {
    if (none) return false;
    const auto found = std::search(page_.begin() + static_cast<std::ptrdiff_t>(at_), page_.end(), end.begin(),
                                   end.end(), [](char a, char b) { return LowerOf(a) == b; });
    none = found == page_.end();
    if (!none) at_ = static_cast<std::size_t>(found - page_.begin()) + past;
    return !none;
  }

  bool ReadEntity() {
    const std::string_view after = page_.substr(at_ + 1, kLongestEntity);
    std::size_t length = 0;
    while (length < after.size() &&
           (IsLetter(after[length]) || IsDigit(after[length]) || after[length] == '#')) {
      ++length;
    }
    const auto character = Decoded(after.substr(0, length));
    if (!character) return false;
    at_ += 1 + length;
    if (at_ < page_.size() && page_[at_] == ';') ++at_;
    if (IsBlank(*character)) {
      blank_ = true;
    } else {
      Add(*character);
    }
    return true;
  }

  void Add(char c) {
    std::string& text = result_.Text;
    if (text.size() + 3 > limit_) {
      result_.Cut = true;
      return;
    }
    const bool full = text.size() - lineBegin_ >= kLongestLine - 1;
    if (text.empty()) {
      // Nothing separates the first character from anything before it.
    } else if (lines_ > 0 || full) {
      text.append(lines_ > 1 ? 2 : 1, '\n');
      lineBegin_ = text.size();
    } else if (blank_) {
      text += ' ';
    }
    lines_ = 0;
    blank_ = false;
    text += c;
  }

  std::string_view page_;
  std::size_t limit_;
  std::size_t at_ = 0;
  HtmlText result_;
  std::size_t lineBegin_ = 0;
  int lines_ = 0;       ///< line ends that are due before the next character; more than 2 count as 2
  bool blank_ = false;  ///< a blank is due
  bool noComment_ = false;
  bool noTag_ = false;
  bool noScriptEnd_ = false;
  bool noStyleEnd_ = false;
  bool noTitleEnd_ = false;
};

}  // namespace

HtmlText TextOfHtml(std::string_view page, std::size_t limit) { return PageReader(page, limit).Read(); }

}  // namespace requite

// SPDX-License-Identifier: MIT
// The examples of the user's guide, one for each option: each is run with two values of the option,
// and the guide has to show what came out. With LEXMILL_REWRITE_GUIDE set, the guide is rewritten.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host/clock.h"
#include "run/console_run.h"
#include "tests/end_to_end/whole_run.h"
#include "tests/support/readable_text.h"

namespace lexmill::test {
namespace {

constexpr std::u16string_view kGuide = u"../docs/guide.zh-CN.md";

struct Setting {
  const char* option;
  const char* value;
};

/// A run with `option.value` at `before`, then at `after`, the others as in the full preset but
/// for `others`. An example without a string shows the files that the runs leave.
struct Example {
  const char* option;
  const char* before;
  const char* after;
  const char* source;
  const char* target;
  const char* toDo;
  std::vector<Setting> others = {};
};

const std::vector<Example>& Examples() {
  static const std::vector<Example> examples = {
      {"txtLenLimit", "10", "50", "Open all files", "打开全部文件", "Open all files"},
      {"chkaMTab", "0", "1", "Copy", "复制", "Copy\\tCtrl+C"},
      {"chkaAndX", "0", "1", "Open", "打开(&O)", "&Open"},
      {"txtrAndXBK1", "\\(", "[(（]", "Open", "打开（&O）", "&Open", {{"txtrAndXBK2", "[)）]"}}},
      {"txtrAndXBK2", "\\)", "[)）]", "Open", "打开（&O）", "&Open", {{"txtrAndXBK1", "[(（]"}}},
      {"txttAndXBK1", "(", " (", "Open", "打开", "&Open"},
      {"txttAndXBK2", ")", "]", "Open", "打开", "&Open", {{"txttAndXBK1", "["}}},
      {"chkrAndXEER", "0", "1", "Open", "打&开", "&Open"},
      {"chkNotAddANDX", "0", "1", "Open", "打开(&O)", "&Open"},
      {"chkaLTrimSpace", "0", "1", "Open", "打开", "  Open"},
      {"chkaRTrimSpace", "0", "1", "Open", "打开", "Open  "},
      {"chkaBanMaoHao", "0", "1", "Name", "名称", "Name:"},
      {"chkaBanSenHao", "0", "1", "Open", "打开", "Open..."},
      {"chkrQuanMaoHao", "0", "1", "Name:", "名称：", "Name:"},
      {"chkrQuanSenHao", "0", "1", "Open...", "打开…", "Open..."},
      {"chkaUpperCase", "0", "1", "Open", "打开", "OPEN"},
      {"chkaKeepTmpFile", "0", "1", "Open", "打开", ""},
      {"chkSaveRefDB", "0", "1", "Open", "打开", ""},
      {"txtSaveRefDB", "", "我的.db", "Open", "打开", "", {{"chkSaveRefDB", "1"}}},
  };
  return examples;
}

// A cell of the table: blanks at the ends are shown as dots.
std::string Cell(std::string text, const char* ifEmpty) {
  if (text.empty()) {
    return ifEmpty;
  }
  std::string shown;
  const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
  const std::size_t last = text.find_last_not_of(' ');
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool atEnd = i < first || last == std::string::npos || i > last;
    shown += atEnd ? std::string("·") : text.substr(i, 1);
  }
  return "`" + shown + "`";
}

std::string ValueName(std::string_view option, std::string_view value) {
  if (option.starts_with("chk")) {
    return value == "1" ? "选中" : "不选";
  }
  return value.empty() ? "空" : Cell(std::string(value), "");
}

std::string Row(const std::vector<std::string>& cells) {
  std::string row = "|";
  for (const auto& cell : cells) {
    row += " " + cell + " |";
  }
  return row + "\n";
}

// Five digits that differ from run to run follow the beginning of a temporary name.
std::string WithoutDrawnDigits(std::string name) {
  constexpr std::size_t kDigits = 5;
  return name.starts_with("rad") ? name.replace(3, kDigits, "*****") : name;
}

class UserGuide : public WholeRun {
 protected:
  UserGuide() {
    platform::ClockOverride clock;
    clock.dayAndHour = u"0715";
    platform::OverrideClock(clock);
  }
  ~UserGuide() override { platform::OverrideClock({}); }

  std::string Table(const Example& example) {
    const bool showsFiles = std::string_view(example.toDo).empty();
    std::vector<std::string> head;
    std::vector<std::string> row;
    if (!showsFiles) {
      head = {"参照字典的原文", "参照字典的译文", "未译字串"};
      row = {Cell(example.source, ""), Cell(example.target, ""), Cell(example.toDo, "")};
    }
    for (const char* value : {example.before, example.after}) {
      head.push_back(ValueName(example.option, value) +
                     (showsFiles ? "：多出的文件" : "：已译字串"));
      RunWith(example, value);
      row.push_back(showsFiles ? Files() : Cell(Translation(), "（不在结果里）"));
    }
    return Row(head) + Row(std::vector<std::string>(head.size(), "---")) + Row(row);
  }

 private:
  void RunWith(const Example& example, const char* value) {
    const std::string toDo = std::string_view(example.toDo).empty() ? "Open" : example.toDo;
    WriteBytes(Dictionary("todo.glo"), Ansi(toDo + "\t" + toDo + "\n"));
    WriteBytes(Dictionary("refer.glo"),
               Ansi(std::string(example.source) + "\t" + example.target + "\n"));
    world_.window.CfgLoadMaxToCtrl();
    for (const Setting& left : {Setting{"chkaKeepTmpFile", "0"}, Setting{"chkSaveRefDB", "0"},
                                Setting{"txtSaveRefDB", ""}}) {
      Set(left.option, left.value);  // the presets leave these alone
    }
    for (const Setting& other : example.others) {
      Set(other.option, other.value);
    }
    Set(example.option, value);
    Press("todo.glo", "refer.glo", "final.glo");
  }

  static void Set(const char* option, const char* value) {
    EXPECT_TRUE(SetOption(platform::FromUtf8(option), platform::FromUtf8(value))) << option;
  }

  // The target of the result's one line; empty if there is no line.
  [[nodiscard]] std::string Translation() const {
    const std::string line = FromAnsiBytes(ReadBytes(Dictionary("final.glo")));
    const std::size_t tab = line.find('\t');
    return tab == std::string::npos ? "" : line.substr(tab + 1, line.size() - tab - 2);
  }

  // What a run leaves besides its result, by name; taken away then.
  std::string Files() {
    std::vector<std::string> names;
    for (const auto& folder : {world_.folder.Path(), dictionaries_.Path()}) {
      for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        if (!name.ends_with(".glo") && !name.ends_with(".ini") && !entry.is_symlink()) {
          names.push_back("`" + WithoutDrawnDigits(name) + "`");
          std::filesystem::remove(entry.path());
        }
      }
    }
    std::ranges::sort(names);
    std::string list;
    for (const auto& name : names) {
      list += (list.empty() ? "" : " ") + name;
    }
    return list.empty() ? "（无）" : list;
  }
};

// Where the table of an option is in the guide: position and length.
struct Place {
  std::size_t begin = 0;
  std::size_t length = 0;
};

std::optional<Place> PlaceOf(const std::string& option, std::string_view guide) {
  const std::string mark = "<!-- example " + option + " -->\n";
  const std::size_t begin = guide.find(mark);
  const std::size_t end = guide.find("<!-- end -->", std::min(begin, guide.size()));
  if (end == std::string::npos) {
    return std::nullopt;
  }
  return Place{begin + mark.size(), end - begin - mark.size()};
}

void RewriteGuide(const std::string& guide) {
  if (std::getenv("LEXMILL_REWRITE_GUIDE") != nullptr) {
    WriteBytes(kGuide, guide);
  }
}

TEST_F(UserGuide, ShowsWhatEachOptionDoes) {
  std::string guide = ReadBytes(kGuide);
  for (const Example& example : Examples()) {
    const auto place = PlaceOf(example.option, guide);
    ASSERT_TRUE(place) << "the guide has no place for the example of " << example.option;
    const std::string table = Table(example);
    EXPECT_EQ(guide.substr(place->begin, place->length), table);
    guide.replace(place->begin, place->length, table);
  }
  RewriteGuide(guide);
}

TEST_F(UserGuide, ShowsAnExplanation) {
  ConsoleArguments arguments;
  arguments.explained = uR"(&OPEN...\tCtrl+O)";
  arguments.references = {u"../samples/ref.glo"};
  std::ostringstream said;
  EXPECT_EQ(ExplainWanted(arguments, said), false);
  std::string guide = ReadBytes(kGuide);
  const auto place = PlaceOf("--explain", guide);
  ASSERT_TRUE(place);
  const std::string block = "```\n" + said.str() + "```\n";
  EXPECT_EQ(guide.substr(place->begin, place->length), block);
  guide.replace(place->begin, place->length, block);
  RewriteGuide(guide);
}

// A reader finds an option by the words that the window shows, or by its name.
TEST_F(UserGuide, CallsEachOptionAsTheWindowDoes) {
  const std::string guide = ReadBytes(kGuide);
  const std::string manual = ReadBytes(u"../docs/lexmill-run.1");
  constexpr std::array kLabels = {
      std::pair{"txtLenLimit", "LabelO1"}, std::pair{"txtrAndXBK1", "LabelO3"},
      std::pair{"txtrAndXBK2", "LabelO3"}, std::pair{"txttAndXBK1", "LabelO2"},
      std::pair{"txttAndXBK2", "LabelO2"}, std::pair{"txtSaveRefDB", "chkSaveRefDB"}};
  for (const Example& example : Examples()) {
    const auto* const label = std::ranges::find_if(
        kLabels, [&](const auto& pair) { return std::string_view(pair.first) == example.option; });
    const auto* const control = world_.window.Window.Find(
        platform::FromUtf8(label == kLabels.end() ? example.option : label->second));
    ASSERT_NE(control, nullptr) << example.option;
    std::string caption = Readable(control->Caption());
    if (const std::size_t doubled = caption.find("&&"); doubled != std::string::npos) {
      caption.erase(doubled, 1);
    }
    const std::string heading = "### " + caption + "（`" + example.option + "`";
    EXPECT_NE(guide.find(heading), std::string::npos) << heading;
    EXPECT_NE(manual.find(example.option), std::string::npos) << example.option;
  }
}

}  // namespace
}  // namespace lexmill::test

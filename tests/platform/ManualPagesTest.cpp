#include "platform/ManualPages.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>

#include "base/TextLines.h"
#include "doubles/Doubles.h"
#include "doubles/MemoryFiles.h"
#include "doubles/Places.h"
#include "platform/system/SystemFiles.h"

namespace vk {
namespace {

using testing::Contains;
using testing::ElementsAre;

/// A heading as pages for a browser name it, where its letters are plain.
std::string headingName(std::string_view heading) {
  std::string name;
  for (const char c : heading) {
    if (c == ' ') name += '-';
    if (std::isalnum(static_cast<unsigned char>(c)) != 0) {
      name += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
  }
  return name;
}

TEST(ManualPages, TellOfEachTopicUnderAHeadingThatIsThere) {
  SystemFiles files;
  for (int topic = 0; topic < kManualTopics; ++topic) {
    const ManualPlace place = manualPlace(static_cast<ManualTopic>(topic));
    const std::string text = files.readAll(sourcePath("docs/manuale/" + std::string(place.page) + ".md"));
    std::vector<std::string> headings;
    TextLines lines(text);
    while (const auto line = lines.next()) {
      const auto mark = line->find_first_not_of('#');
      if (mark != 0 && mark != std::string_view::npos && (*line)[mark] == ' ') {
        headings.push_back(headingName(line->substr(mark + 1)));
      }
    }
    EXPECT_THAT(headings, Contains(place.heading)) << place.page;
    EXPECT_EQ(std::ranges::count(headings, place.heading), 1) << "others get a number";
  }
}

TEST(ManualPages, AreThoseForABrowserElseThoseThatAreWritten) {
  MemoryFiles files;
  RecordingProcess process;
  const auto told = [&] { return std::string(openManual(files, process, ManualTopic::kEditor).bytes()); };
  for (const char* ofCurrentFolder : {"20-finestre.html", "20-finestre.md"})
    files.content[ofCurrentFolder] = "";
  EXPECT_EQ(told(), "Manuale NON Trovato!");
  EXPECT_THAT(process.shown, ElementsAre());
  for (const char* page : {"indice", "20-finestre"}) {
    files.content["/share/vor_kel/docs/manuale/" + std::string(page) + ".md"] = "";
  }
  EXPECT_EQ(told(), "");
  files.content["/share/vor_kel/manuale/indice.html"] = "";
  EXPECT_EQ(told(), "") << "a page that is missing there";
  files.content["/share/vor_kel/manuale/20-finestre.html"] = "";
  EXPECT_EQ(told(), "");
  EXPECT_THAT(process.shown, ElementsAre("/share/vor_kel/docs/manuale/20-finestre.md",
                                         "/share/vor_kel/docs/manuale/20-finestre.md",
                                         "/share/vor_kel/manuale/20-finestre.html#leditor"));
  process.works = false;
  EXPECT_EQ(told(), "Manuale NON Aperto: /share/vor_kel/manuale/20-finestre.html");
}

}  // namespace
}  // namespace vk

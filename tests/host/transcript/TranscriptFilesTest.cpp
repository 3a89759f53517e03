#include <gtest/gtest.h>

#include <cstdlib>

#include "host/ComponentServer.h"
#include "host/HostBench.h"
#include "host/transcript/Replay.h"

namespace ostrand::test {

namespace {

std::filesystem::path transcripts() { return std::filesystem::path(OSTRAND_SOURCE_DIR) / "tests" / "transcripts"; }

// "measurement_life" for measurement/life.transcript.
std::string testName(const testing::TestParamInfo<std::filesystem::path>& info) {
  std::string name = info.param.lexically_relative(transcripts()).replace_extension().generic_string();
  for (char& c : name)
    if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
  return name;
}

}  // namespace

// Every transcript, played on the views of the component library as a host loads them.
class TranscriptFilesTest : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(TranscriptFilesTest, IsAsExpected) {
  setenv("OSTRAND_REGISTRY", (std::filesystem::path(OSTRAND_BINARY_DIR) / "transcripts-components.xml").c_str(), 1);
  {
    ComponentServer components(std::filesystem::path(OSTRAND_BINARY_DIR) / ownLibraryName());
    const Replay::Result result = Replay(components, sourceData()).compare(GetParam());
    EXPECT_EQ(result.outcome, Replay::Outcome::Matches) << result.text;
  }
  unsetenv("OSTRAND_REGISTRY");
}

INSTANTIATE_TEST_SUITE_P(All, TranscriptFilesTest, testing::ValuesIn(Replay::filesOf({transcripts().string()})), testName);

}  // namespace ostrand::test

#include <gmock/gmock.h>
#include <sys/resource.h>

#include <QProcess>
#include <csignal>

#include "workbench/WindowBench.h"

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class BadInputTest : public WindowBench {
 protected:
  void SetUp() override {
    open();
    ASSERT_TRUE(show("measurement", "activeRecipe"));
    before = workbench->host().dataSet()->file();
  }
  void write(const std::string& name, const std::string& text) {
    nextFile = data / name;
    writeWholeFile(*nextFile, text);
  }
  void expectStillThere() {
    EXPECT_EQ(workbench->host().dataSet()->file(), before);
    EXPECT_EQ(deviceValue("activeRecipe", "activeRecipe"), "1");
  }

  std::filesystem::path before;
};

TEST_F(BadInputTest, ADataSetThatIsNoDocument) {
  write("broken.xml", "<data:dtm");
  window->dataSets().open();
  EXPECT_THAT(asked, ElementsAre(HasSubstr("broken.xml")));
  expectStillThere();
}

TEST_F(BadInputTest, ADocumentThatIsNoDataSet) {
  write("other.xml", "<shopping><item/></shopping>");
  window->dataSets().open();
  EXPECT_THAT(asked, ElementsAre(HasSubstr("other.xml")));
  expectStillThere();
}

TEST_F(BadInputTest, ADataSetThatIsNotThere) {
  nextFile = data / "none.xml";
  window->dataSets().open();
  EXPECT_THAT(asked, ElementsAre(HasSubstr("none.xml")));
  expectStillThere();
}

TEST_F(BadInputTest, ASaveThatFailsLeavesTheOldFile) {
  // A folder in the place of the file: nothing can be renamed over it.
  nextFile = data / "taken.xml";
  std::filesystem::create_directories(*nextFile / "inside");
  window->dataSets().saveAs();
  EXPECT_THAT(asked, ElementsAre(HasSubstr("could not be saved")));
  EXPECT_TRUE(std::filesystem::is_directory(*nextFile / "inside"));
  expectStillThere();
}

TEST_F(BadInputTest, AFullDiskLeavesTheOldFileWhole) {
  const std::filesystem::path file = workbench->host().dataSet()->file();
  const std::string whole = readWholeFile(file);
  ASSERT_GT(whole.size(), 4096u);
  // No file may grow beyond this, as on a disk that is full.
  rlimit old{};
  getrlimit(RLIMIT_FSIZE, &old);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit tight{4096, old.rlim_max};
  setrlimit(RLIMIT_FSIZE, &tight);
  window->dataSets().save();
  setrlimit(RLIMIT_FSIZE, &old);
  std::signal(SIGXFSZ, handler);
  EXPECT_THAT(asked, ElementsAre(HasSubstr("could not be saved")));
  EXPECT_TRUE(readWholeFile(file) == whole);
  for (const auto& each : std::filesystem::directory_iterator(file.parent_path()))
    EXPECT_EQ(each.path().extension(), ".xml") << "a half-written file stays behind";
  expectStillThere();
}

TEST_F(BadInputTest, ADisplayThatCannotBeUsedIsToldAndEndsTheProgram) {
  QProcess program;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("nowhere"));
  environment.insert(QStringLiteral("OSTRAND_DATA"), QString::fromStdString(data.string()));
  program.setProcessEnvironment(environment);
  program.start(QStringLiteral(OSTRAND_BINARY_DIR "/ostrand-workbench"), {QStringLiteral("--tour")});
  ASSERT_TRUE(program.waitForFinished(20000));
  EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(program.exitCode(), 1);
  EXPECT_THAT(program.readAllStandardError().toStdString(), HasSubstr("there is no display that can be used"));
}

TEST_F(BadInputTest, ATranscriptOfAnotherVersion) {
  write("old.transcript", "> create VwMeasurement\n> teleport somewhere\n");
  window->transcripts().replay();
  EXPECT_THAT(asked, ElementsAre(testing::AllOf(HasSubstr("old.transcript"), HasSubstr("teleport"))));
}

TEST_F(BadInputTest, ALanguageWhoseFileIsDamaged) {
  writeWholeFile(data / "texts" / "sv.xml", "<texts");
  window->settingsMenu().setLanguage("sv");
  EXPECT_THAT(asked, ElementsAre(HasSubstr("sv")));
  EXPECT_EQ(workbench->settings().language, "en");
  window->settingsMenu().setLanguage("fi");
  EXPECT_EQ(workbench->settings().language, "fi");
}

TEST_F(BadInputTest, ALanguageThatIsNotThere) {
  window->settingsMenu().setLanguage("xx");
  EXPECT_THAT(asked, ElementsAre(HasSubstr("xx")));
  EXPECT_EQ(workbench->settings().language, "en");
}

TEST_F(BadInputTest, ADataSetOfItsOwnIsSavedAndOpenedAgain) {
  workbench->host().dataSet()->edit("damping", "4.5");
  nextFile = data / "copy.xml";
  window->dataSets().saveAs();
  window->dataSets().open();
  EXPECT_EQ(workbench->host().dataSet()->current("damping"), "4.5");
  EXPECT_EQ(workbench->host().dataSet()->file(), *nextFile);
  EXPECT_THAT(asked, IsEmpty());
}

TEST_F(BadInputTest, APictureIsWritten) {
  for (const char* const name : {"view.png", "view.pdf"}) {
    nextFile = data / name;
    window->fileMenu().savePicture();
    EXPECT_GT(std::filesystem::file_size(*nextFile), 1000u) << name;
  }
  nextFile = data / "nowhere" / "view.png";
  window->fileMenu().savePicture();
  EXPECT_THAT(asked, ElementsAre(HasSubstr("view.png")));
}

}  // namespace
}  // namespace ostrand::test

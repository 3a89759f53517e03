#include <gmock/gmock.h>

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace ostrand::test {
namespace {

// The program as it runs where there is no display.
TEST(TourTest, WithoutADisplayTheTourCalibratesATransmitterAndTakesItsPictures) {
  QTemporaryDir folder;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const char* const variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) environment.remove(QString::fromLatin1(variable));
  environment.insert(QStringLiteral("OSTRAND_DATA"), QStringLiteral(OSTRAND_SOURCE_DIR "/data"));
  environment.insert(QStringLiteral("OSTRAND_REGISTRY"), folder.filePath(QStringLiteral("components.xml")));
  QProcess program;
  program.setProcessEnvironment(environment);
  program.setWorkingDirectory(folder.path());
  program.start(QStringLiteral(OSTRAND_BINARY_DIR "/ostrand-workbench"), QStringList());
  ASSERT_TRUE(program.waitForFinished(120000));
  const QString told = QString::fromUtf8(program.readAllStandardOutput());
  EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();

  const QRegularExpressionMatch proof =
      QRegularExpression(QStringLiteral("has measured ([0-9.]+) %Cs, the laboratory finds ([0-9.]+) %Cs")).match(told);
  ASSERT_TRUE(proof.hasMatch());
  EXPECT_NEAR(proof.captured(1).toDouble(), proof.captured(2).toDouble(), 0.03);
  EXPECT_EQ(told.count(QStringLiteral("   picture: ")), QDir(folder.filePath(QStringLiteral("out"))).entryList({QStringLiteral("*.png")}).size());
  for (const QFileInfo& picture : QDir(folder.filePath(QStringLiteral("out"))).entryInfoList({QStringLiteral("*.png")})) {
    EXPECT_GT(picture.size(), 5000) << picture.fileName().toStdString();
    EXPECT_LT(picture.size(), 150000) << picture.fileName().toStdString() << " is too large to be kept beside the texts";
  }
}

}  // namespace
}  // namespace ostrand::test

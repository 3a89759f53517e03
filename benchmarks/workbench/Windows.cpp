#include "benchmarks/workbench/Windows.h"

#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <pugixml.hpp>
#include <stdexcept>
#include <string_view>

#include "benchmarks/BenchView.h"
#include "benchmarks/Documents.h"
#include "benchmarks/Placed.h"
#include "workbench/dialogs/WaitingDialog.h"
#include "workbench/window/MainWindow.h"

namespace ostrand::bench {

namespace {

constexpr int kRecipes = 8;
constexpr int kControls = 60;
constexpr int kOnScreen = 20;
constexpr int kWaiting = 500;

// What waits, paint requests included.
void paint() { QApplication::processEvents(); }

// The workbench over the mill's data; its devices are left alone.
struct OurWindow {
  OurWindow() : workbench((setRegistry(), std::filesystem::path(OSTRAND_SOURCE_DIR) / "data")), window(workbench) {
    for (const auto& device : workbench.devices()) {
      device->host().views().setLiveReading(false);
      device->host().connect(nullptr);
    }
    window.QWidget::show();
    home();
  }
  static void setRegistry() { setenv("OSTRAND_REGISTRY", (std::filesystem::temp_directory_path() / "ostrand-bench-components.xml").c_str(), 0); }
  // The page from which the others are opened; no other view is there.
  void home() {
    PlantDevice& device = workbench.current();
    window.show({&device, "measurement", "activeRecipe"});
    for (const Ref<ViewSite>& site : std::vector(device.host().views().sites()))
      if (site->tag() != "measurement") device.host().views().release(*site);
    paint();
  }
  void open() { window.tree().onChosen({&workbench.current(), "calibration", "recipes"}); }

  Workbench workbench;
  MainWindow window;
};

struct TheirWindow {
  TheirWindow() {
    window.setCentralWidget(&area);
    area.setWidgetResizable(true);
    window.resize(1070, 600);
    window.show();
    home();
  }
  ~TheirWindow() { window.takeCentralWidget(); }
  void home() {
    area.setWidget(new QLabel(QStringLiteral("Active recipe")));
    paint();
  }
  void open() {
    auto* const page = new QWidget;
    auto* const grid = new QGridLayout(page);
    auto* const title = new QLabel(QStringLiteral("Recipes"));
    title->setProperty("role", QStringLiteral("title"));
    grid->addWidget(title, 0, 0, 1, 7);
    const char* const heads[] = {"", "Pulp type", "Filler", "", "Slope P1", "Offset P2", ""};
    for (int column = 0; column < 7; ++column) grid->addWidget(new QLabel(QString::fromLatin1(heads[column])), 1, column);
    for (int row = 0; row < kRecipes; ++row) {
      grid->addWidget(new QLabel(QStringLiteral("Recipe %1").arg(row + 1)), row + 2, 0);
      auto* const combo = new QComboBox;
      for (int i = 0; i < 12; ++i) combo->addItem(QStringLiteral("Bleached softwood kraft %1").arg(i));
      combo->setCurrentIndex(row);
      grid->addWidget(combo, row + 2, 1);
      for (const int column : {2, 4, 5}) {
        auto* const field = new QLineEdit(QString::number(0.25 * row, 'f', 2));
        field->setAlignment(Qt::AlignRight);
        grid->addWidget(field, row + 2, column);
      }
      for (const int column : {3, 6}) grid->addWidget(new QLabel(QStringLiteral("%Cs")), row + 2, column);
    }
    grid->addWidget(new QPushButton(QStringLiteral("Download")), kRecipes + 2, 1);
    area.setWidget(page);
    page->show();
  }

  QMainWindow window;
  QScrollArea area;
};

// Before a data set of which every value waits to be written.
struct WaitingList {
  WaitingList() {
    DataSet dataSet(Document::read(dataSetText(kWaiting)));
    for (int i = 0; i < kWaiting; ++i) dataSet.edit(nameOf(i), "7.5");
    ours.workbench.host().setDataSet(std::move(dataSet));
  }
  void home() {
    delete ours.window.edits().waitingDialog();
    paint();
  }
  void open() { ours.window.edits().review(); }

  OurWindow ours;
};

// Prepares, then opens and paints: only that counts.
template <class Window>
Work opening(std::string name) {
  const auto window = std::make_shared<std::unique_ptr<Window>>();
  return {std::move(name), [=](Meter& meter) {
            if (!*window) *window = std::make_unique<Window>();
            (*window)->home();
            meter.measure([&] {
              (*window)->open();
              paint();
            });
          }};
}

struct OurView {
  explicit OurView(int items) : texts{answerText(items, 1), answerText(items, 2)}, placed(new BenchView(kControls, kControls)) {
    offlineData(placed, Document::read(dataSetText(kControls)));
    panel.setTheme(Theme::make(Theme::Kind::Light));
    panel.setView(placed.as<ITaviView>());
    panel.resize(900, 1000);
    panel.show();
    paint();
  }
  ~OurView() { panel.setView(nullptr), paint(); }
  void show(const std::string& text) { onlineData(placed, Document::read(text)); }

  std::string texts[2];
  Placed placed;
  ViewPanel panel;
  int next = 0;
};

struct TheirView {
  explicit TheirView(int items) : texts{answerText(items, 1), answerText(items, 2)} {
    for (int i = 0; i < kControls; ++i) {
      if (i % kOnScreen == 0) pages.addWidget(new QWidget), new QGridLayout(pages.widget(pages.count() - 1));
      auto* const grid = static_cast<QGridLayout*>(pages.widget(pages.count() - 1)->layout());
      auto* const field = new QLineEdit;
      const QString name = QString::fromStdString(nameOf(i));
      grid->addWidget(new QLabel(name), i % kOnScreen, 0);
      grid->addWidget(field, i % kOnScreen, 1);
      fields[name] = field;
    }
    pages.resize(900, 1000);
    pages.show();
    paint();
  }
  void show(const std::string& text) {
    pugi::xml_document doc;
    doc.load_buffer(text.data(), text.size());
    for (const pugi::xml_node item : doc.document_element().first_child().children())
      if (QLineEdit* const field = fields.value(QString::fromUtf8(item.attribute("name").value())))
        field->setText(QString::fromUtf8(item.first_child().child_value()));
  }

  std::string texts[2];
  QStackedWidget pages;
  QHash<QString, QLineEdit*> fields;
  int next = 0;
};

template <class View>
Work answering(std::string name, int items) {
  const auto view = std::make_shared<std::unique_ptr<View>>();
  return {std::move(name), [=](Meter& meter) {
            if (!*view) *view = std::make_unique<View>(items);
            View& at = **view;
            at.next = 1 - at.next;
            meter.measure([&] {
              at.show(at.texts[at.next]);
              paint();
            });
          }};
}

constexpr const char* kStart = "OSTRAND_BENCH_START";

// The processor time that this program needs to show one window.
Work starting(std::string name, const char* which) {
  return {std::move(name), [which](Meter& meter) {
            setenv(kStart, which, 1);
            char program[] = "/proc/self/exe";
            char* const arguments[] = {program, nullptr};
            pid_t child = 0;
            int status = -1;
            rusage used{};
            const bool started = posix_spawn(&child, program, nullptr, nullptr, arguments, environ) == 0;
            unsetenv(kStart);
            if (!started || wait4(child, &status, 0, &used) != child || status != 0) throw std::runtime_error("the window does not start");
            for (const timeval& time : {used.ru_utime, used.ru_stime})
              meter.add(static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec));
          }};
}

template <class Window>
void startAndEnd() {
  Window window;
  window.open();
  paint();
  std::_Exit(0);
}

}  // namespace

Work start() { return starting("start of ostrand", "ostrand"); }

Work startByHand() { return starting("start by hand", "hand"); }

void startIfAsked() {
  const char* const which = std::getenv(kStart);
  if (!which) return;
  if (std::string_view(which) == "hand") startAndEnd<TheirWindow>();
  startAndEnd<OurWindow>();
}

Work openWaitingList() { return opening<WaitingList>("list of waiting values"); }

Work openRecipes() { return opening<OurWindow>("recipes by ostrand"); }

Work openRecipesByHand() { return opening<TheirWindow>("recipes by hand"); }

Work showAnswer(int items) { return answering<OurView>("shown answer " + std::to_string(items) + " by ostrand", items); }

Work showAnswerByHand(int items) { return answering<TheirView>("shown answer " + std::to_string(items) + " by hand", items); }

}  // namespace ostrand::bench

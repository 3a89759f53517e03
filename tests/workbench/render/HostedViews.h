#pragma once

#include <QTemporaryDir>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "host/ComponentServer.h"
#include "host/Host.h"
#include "platform/controls/EditControl.h"

namespace ostrand::test {

// A host over the mill's data with every class that the component library has, registered for the test alone.
class HostedViews {
 public:
  explicit HostedViews(Desktop& desktop) : mDesktop(desktop) {
    qputenv("OSTRAND_REGISTRY", mFolder.filePath("components.xml").toUtf8());
    mServer = std::make_unique<ComponentServer>(std::filesystem::path(OSTRAND_BINARY_DIR) / ownLibraryName());
    host = std::make_unique<Host>(mDesktop, *mServer, mPrompt, kData);
    mServer->create("VwMeasurement");
    for (const RegisteredClass& each : mServer->classes()) classes.push_back(each.name);
  }
  ~HostedViews() {
    host.reset();
    qunsetenv("OSTRAND_REGISTRY");
  }

  // The view with the data set of the mill that has most of its parameters.
  Ref<ViewSite> open(const std::string& className) {
    std::string best;
    int most = -1;
    for (const auto& file : std::filesystem::directory_iterator(std::filesystem::path(kData) / "devices")) {
      host->openDataSet(file.path());
      const Ref<ViewSite> site = host->views().place(className);
      int found = 0;
      if (site->view()) {
        host->views().open(*site, "");
        for (Control* control : site->view()->GetControls())
          if (const auto* edit = dynamic_cast<EditControl*>(control)) found += edit->HasParameter();
      }
      host->views().release(*site);
      if (found > most) most = found, best = file.path();
    }
    host->openDataSet(best);
    const Ref<ViewSite> site = host->views().place(className);
    if (site->view()) host->views().open(*site, keysOf(*site).front());
    return site;
  }
  static std::vector<std::string> keysOf(ViewSite& site) {
    std::vector<std::string> keys;
    for (Control* control : site.view()->GetControls())
      if (control->kind() == Control::Kind::Frame || (control->view() && control->Left() == 0 && control->Top() == 0)) keys.push_back(control->Tag());
    return keys;
  }

 private:
  class SilentPrompt : public UserPrompt {
   public:
    int ask(const std::string&, const std::string&, const Answers&) override { return kGoOn; }
    void show(const std::string&, const std::string&) override {}
  };

  static inline const std::string kData = std::string(OSTRAND_SOURCE_DIR) + "/data";
  Desktop& mDesktop;
  SilentPrompt mPrompt;
  QTemporaryDir mFolder;
  std::unique_ptr<ComponentServer> mServer;

 public:
  std::unique_ptr<Host> host;
  std::vector<std::string> classes;
};

}  // namespace ostrand::test

#pragma once

#include <string>
#include <vector>

#include "cli/Narrator.h"
#include "host/Host.h"

namespace ostrand {

// Conversations with a simulated blade transmitter, held by what a user does to the controls of two views: measurement and
// calibration.
class Demo {
 public:
  struct Options {
    std::string device = "hartBlade";
    std::string language = "en";
    unsigned seed = 1;
  };

  // The desktop is that of host and device; `reader` as for the narrator. All must outlive it. RuntimeError if the device, the
  // language, a file or a view is missing.
  Demo(const Terminal& terminal, Desktop& desktop, Desktop* reader, ComponentSource& components, const Options& options);

  // A whole laboratory calibration: two samples, what the laboratory found, the verdict, and the reading before and after.
  void calibrate();
  // A choice and a click: the device is to measure with this recipe, 1 to 8.
  void changeRecipe(int recipe);

 private:
  Ref<ViewSite> open(const std::string& className, const std::string& key);
  void bringToFront(const Ref<ViewSite>& site, const std::string& key);
  // The reading at the end of so many, in %Cs.
  double watchLiveValues(int readings, int rows);
  void takeSample(int number);
  void enterResults();
  void readRecipesBack();
  void closeWith(double before, double after);
  void showTips();

  // What the user does to the controls of the view in front.
  void choose(const std::string& control, const std::string& key);
  void type(const std::string& control, const std::string& text);
  void click(const std::string& control);
  template <class T>
  T& control(const std::string& name) const;

  bool awaitReading();
  std::vector<std::string> liveValues(int count) const;
  double laboratoryValue(int sample);
  // A value of the data set with its decimals and unit.
  std::string shown(const std::string& parameter) const;
  void settle();
  void passUntil(double secondsSinceStart);

  const Terminal& mTerminal;
  Desktop& mDesktop;
  LocalTime mStart;
  Narrator mNarrator;
  Host mHost;
};

}  // namespace ostrand

#pragma once

#include <filesystem>
#include <string>

#include "workbench/tour/TourGuest.h"
#include "workbench/window/MainWindow.h"

namespace ostrand {

// A guided tour without a user: calibrates the simulated transmitter against the laboratory, from the first sample to the
// reading that agrees with it, drives its output in a loop test, reads its event log, changes the active recipe, language,
// units and theme, compares data set and device, and meets a device that does not answer. Tells every step, prints the
// conversation and takes pictures.
class Tour {
 public:
  // Pictures go to `folder`, which is made if need be.
  Tour(MainWindow& window, std::filesystem::path folder);

  // RuntimeError 91 if something is not where the tour looks for it.
  void play();

 private:
  void activeRecipe();
  void liveValues();
  void sample(int number);
  void laboratory();
  void recipes();
  void proof();
  void loopTest();
  void eventLog();
  void anotherRecipe();
  void anotherLanguage();
  void comparison();
  void silence();

  void step(const std::string& text);
  void show(const std::string& branch, const std::string& frame);
  // Prints what has been said since the last time, then takes the picture.
  void tell(const std::string& name);
  void picture(QWidget& widget, const std::string& name);
  // Lets time pass on the clock, and then until nothing is on its way to the device.
  void settle(double seconds);
  void passUntil(double secondsSinceStart);
  Device& device() const;

  MainWindow& mWindow;
  TourGuest mGuest;
  std::filesystem::path mFolder;
  LocalTime mStart;
  std::size_t mPrinted = 0;
  int mPictures = 0;
};

}  // namespace ostrand

#pragma once

#include <cstdio>
#include <filesystem>
#include <string>

#include "workbench/window/MainWindow.h"

namespace ostrand {

// A guided tour without a user: sets the active recipe of the simulated transmitter, watches its live values, changes language,
// units and theme, compares data set and device, and meets a device that does not answer. Tells every step, prints the
// conversation and takes pictures.
class Tour {
 public:
  // Pictures go to `folder`, which is made if need be.
  Tour(MainWindow& window, std::filesystem::path folder);

  void play();

 private:
  void step(const char* text);
  void picture(const std::string& name);
  // Prints what has been said since the last time.
  void printConversation();
  void chooseRecipe(int down);
  void settle(double seconds);

  MainWindow& mWindow;
  std::filesystem::path mFolder;
  std::size_t mPrinted = 0;
  int mPictures = 0;
};

}  // namespace ostrand

#pragma once

#include <QTreeWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "workbench/plant/PlantDevice.h"
#include "workbench/render/Theme.h"
#include "workbench/words/Texts.h"

namespace ostrand {

// The mill: its devices with what they say of themselves, under each the branches of the tree document with their frames. What
// has no view yet is there, but cannot be chosen. The arrow keys move; Enter or a click asks for the frame.
class PlantTree : public QTreeWidget {
 public:
  struct Page {
    PlantDevice* device = nullptr;
    std::string branch;
    std::string frame;
    friend bool operator==(const Page&, const Page&) = default;
  };

  explicit PlantTree(QWidget* parent = nullptr);

  void setDevices(const std::vector<std::unique_ptr<PlantDevice>>& devices);
  void setTexts(const Texts& texts);
  void setPriorities(const std::vector<Ne107>& priorities);
  // Titles and states of the devices anew.
  void refreshDevices();
  // Marks the frame that is shown.
  void setShown(const Page& page);
  // The first frame that can be shown; no device if there is none.
  Page firstPage() const;
  // All frames of a device that can be shown, in the order of the tree.
  std::vector<Page> pages(const PlantDevice& device) const;
  QTreeWidgetItem* itemOf(const Page& page) const;

  // The user wants to see this frame.
  std::function<void(const Page&)> onChosen;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct Row {
    QTreeWidgetItem* item;
    Page page;
    std::string key;  // of the text table, empty for a device
    bool exists = true;
  };
  void addDevice(PlantDevice& device);
  void choose(QTreeWidgetItem* item);
  const Row* rowOf(const QTreeWidgetItem* item) const;
  void retranslate();

  Texts mTexts;
  std::vector<Ne107> mPriorities = ne107Order();
  QTreeWidgetItem* mMill = nullptr;
  std::vector<Row> mRows;
  Page mShown;
};

}  // namespace ostrand

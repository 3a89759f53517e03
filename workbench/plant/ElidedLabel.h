#pragma once

#include <QLabel>

namespace ostrand {

// One line of text that ends in dots where it has not its whole place, and is told whole in the tooltip then.
class ElidedLabel : public QLabel {
 public:
  using QLabel::QLabel;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
};

}  // namespace ostrand

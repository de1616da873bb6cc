// The text of a message: as wide as it needs up to a good line, as high as it needs up to most of the screen,
// and scrolled beyond that.
#pragma once

#include <QScrollArea>

class QLabel;

namespace rollwick {

class MessageArea : public QScrollArea {
  Q_OBJECT

 public:
  explicit MessageArea(const QString& text);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void changeEvent(QEvent* event) override;

 private:
  QLabel* lblMessage_;
};

}  // namespace rollwick

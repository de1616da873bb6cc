// The handbook: pages of docs/ in a window of its own, beside the table.
#pragma once

#include <QDialog>
#include <QString>
#include <filesystem>

class QTextBrowser;

namespace rollwick {

class HelpWindow : public QDialog {
  Q_OBJECT

 public:
  HelpWindow(std::filesystem::path folder, QWidget* owner);

  // Shows "PAGE.md" of the folder, or the page on the table when a screen has none of its own, and brings the
  // window to the front.
  void Open(const QString& page);

 private:
  void Follow(const QUrl& link);
  void GoTo(const QString& heading);

  std::filesystem::path folder_;
  QTextBrowser* pages_ = nullptr;
};

}  // namespace rollwick

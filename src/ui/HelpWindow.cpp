#include "ui/HelpWindow.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>
#include <system_error>
#include <utility>

#include "ui/screens/Captions.h"

namespace rollwick {
namespace {

constexpr const char* kContents = "contents";
constexpr const char* kTable = "table";

}  // namespace

HelpWindow::HelpWindow(std::filesystem::path folder, QWidget* owner)
    : QDialog(owner), folder_(std::move(folder)) {
  setObjectName("frmHelp");
  setWindowTitle("Rollwick Help");
  pages_ = new QTextBrowser;
  Name(*pages_, "txtHelp", "Help page");
  pages_->setOpenExternalLinks(true);
  pages_->setSearchPaths({QString::fromStdString(folder_.string())});

  auto* const row = new QHBoxLayout;
  const auto add = [&](const char* name, const QString& caption, auto act) {
    auto* const button = new QPushButton(caption);
    Name(*button, name, caption);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, act);
    row->addWidget(button);
    return button;
  };
  add("cmdContents", "&Contents", [this] { Open(kContents); });
  QPushButton* const back = add("cmdBack", "&Back", [this] { pages_->backward(); });
  QPushButton* const forward = add("cmdForward", "&Forward", [this] { pages_->forward(); });
  row->addStretch();
  add("cmdClose", "Close", [this] { close(); });
  for (QPushButton* const button : {back, forward}) button->setEnabled(false);
  connect(pages_, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
  connect(pages_, &QTextBrowser::forwardAvailable, forward, &QPushButton::setEnabled);

  auto* const all = new QVBoxLayout(this);
  all->addLayout(row);
  all->addWidget(pages_);
  const QSize letter(fontMetrics().averageCharWidth(), fontMetrics().height());
  resize(letter.width() * 100, letter.height() * 40);
}

void HelpWindow::Open(const QString& page) {
  std::error_code unknown;
  const auto isThere = [&](const QString& name) {
    return std::filesystem::is_regular_file(folder_ / (name + ".md").toStdString(), unknown);
  };
  const QString shown = isThere(page) ? page : QString(kTable);
  if (isThere(shown)) {
    pages_->setSource(QUrl(shown + ".md"), QTextDocument::MarkdownResource);
  } else {
    pages_->setPlainText("The pages of the help are not in\n" + QString::fromStdString(folder_.string()) +
                         "\n\nInstalling Rollwick again brings them back.");
  }
  show();
  raise();
  activateWindow();
}

}  // namespace rollwick

#include "ui/HelpWindow.h"

#include <QAbstractTextDocumentLayout>
#include <QDesktopServices>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTextBlock>
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

// What links call a heading: "All statements" is "all-statements".
QString LinkName(const QString& heading) {
  QString name;
  for (const QChar character : heading.toLower()) {
    if (character == ' ') name += '-';
    if (character.isLetterOrNumber() || character == '-') name += character;
  }
  return name;
}

}  // namespace

HelpWindow::HelpWindow(std::filesystem::path folder, QWidget* owner)
    : QDialog(owner), folder_(std::move(folder)) {
  setObjectName("frmHelp");
  setWindowTitle("Rollwick Help");
  pages_ = new QTextBrowser;
  Name(*pages_, "txtHelp", "Help page");
  pages_->setOpenLinks(false);
  connect(pages_, &QTextBrowser::anchorClicked, this, &HelpWindow::Follow);
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
  const QSize page(letter.width() * 100, letter.height() * 40);
  resize(page.boundedTo(screen()->availableSize() * 0.9));
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

// Pages are shown here, all else by the desktop.
void HelpWindow::Follow(const QUrl& link) {
  if (!link.path().endsWith(".md") || !link.scheme().isEmpty()) {
    const std::filesystem::path file = folder_ / link.path().toStdString();
    QDesktopServices::openUrl(link.isRelative() ? QUrl::fromLocalFile(QString::fromStdString(file.string()))
                                                : link);
    return;
  }
  pages_->setSource(link, QTextDocument::MarkdownResource);
  if (link.hasFragment()) GoTo(link.fragment());
}

void HelpWindow::GoTo(const QString& heading) {
  const QTextDocument& page = *pages_->document();
  for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
    if (block.blockFormat().headingLevel() == 0 || LinkName(block.text()) != heading) continue;
    pages_->verticalScrollBar()->setValue(
        static_cast<int>(page.documentLayout()->blockBoundingRect(block).top()));
    return;
  }
}

}  // namespace rollwick

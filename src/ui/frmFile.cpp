#include "ui/frmFile.h"

#include <QFile>
#include <QFileDialog>

#include "ui/screens/Captions.h"

namespace rollwick {
namespace {

namespace fs = std::filesystem;

QString FromPath(const fs::path& path) {
  return QFile::decodeName(path.c_str());
}

// Names from elsewhere may be in capitals.
QString Filter(const FileKind& kind) {
  const QString suffix = kind.suffix;
  return QString("%1 (*.%2 *.%3);;All files (*)").arg(kind.what, suffix, suffix.toUpper());
}

void Prepare(QFileDialog& dialog, const FileKind& kind, const fs::path& start) {
  dialog.setObjectName("frmFile");
  dialog.setNameFilter(Filter(kind));
  std::error_code unknown;
  const bool isFolder = fs::is_directory(start, unknown);
  dialog.setDirectory(FromPath(isFolder ? start : start.parent_path()));
  if (!isFolder && start.has_filename()) dialog.selectFile(FromPath(start.filename()));
}

std::optional<fs::path> Chosen(QFileDialog& dialog) {
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  return fs::path(QFile::encodeName(dialog.selectedFiles().front()).toStdString());
}

}  // namespace

std::optional<fs::path> ChooseFileToOpen(QWidget* owner, const FileKind& kind, const fs::path& start) {
  QFileDialog dialog(owner, kind.title);
  dialog.setFileMode(QFileDialog::ExistingFile);
  Prepare(dialog, kind, start);
  return Chosen(dialog);
}

std::optional<fs::path> ChooseFileToSave(Game& g, QWidget* owner, const FileKind& kind,
                                         const fs::path& start) {
  fs::path from = start;
  for (;;) {
    QFileDialog dialog(owner, kind.title);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setDefaultSuffix(kind.suffix);
    Prepare(dialog, kind, from);
    const std::optional<fs::path> file = Chosen(dialog);
    std::error_code unknown;
    if (!file || !fs::exists(*file, unknown)) return file;
    if (AskYesNo(g,
                 FromQt(FromPath(file->filename())) + "\ris already on file.\r\rDo you want to overwrite it?",
                 kind.title))
      return file;
    from = *file;
  }
}

}  // namespace rollwick

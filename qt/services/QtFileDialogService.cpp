#include "qt/services/QtFileDialogService.h"

#include "qt/detail/ParentWindow.h"
#include "qt/QtText.h"

#include <QDir>
#include <QFileDialog>
#include <QPointer>
#include <QStringList>

namespace CommonUI
{

namespace
{

// "Filters (*.flt)" and its masks, as Qt wants it: "Filters (*.flt *.filter)".
QString ToNameFilter(const SFileFilter& filter)
{
    QStringList masks;
    // A mask for any extension means files without one, too.
    for (const CStr& mask : filter.masks)
        masks.append(mask == u"*.*" ? QStringLiteral("*") : ToQString(mask));
    return QStringLiteral("%1 (%2)").arg(ToQString(filter.text), masks.join(QLatin1Char(' ')));
}

// Qt's own dialog would let the user delete and rename what it shows.
void PrepareForFolder(QFileDialog& window)
{
    window.setFileMode(QFileDialog::Directory);
    window.setOptions(QFileDialog::ShowDirsOnly | QFileDialog::ReadOnly);
}

void PrepareForFile(QFileDialog& window, const SFileDialog& dialog)
{
    window.setAcceptMode(dialog.forOpen ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    window.setFileMode(dialog.forOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    QStringList filters;
    for (const SFileFilter& filter : ParseFileFilters(dialog.filter))
        filters.append(ToNameFilter(filter));
    if (!filters.isEmpty())
        window.setNameFilters(filters);
    // Opening would find no file without an extension.
    if (!dialog.forOpen)
        window.setDefaultSuffix(ToQString(dialog.extension));
    if (!dialog.file.IsEmpty())
        window.selectFile(ToQString(dialog.file));
}

} // namespace

CQtFileDialogService::~CQtFileDialogService() = default;

bool CQtFileDialogService::Show(const SFileDialog& dialog, CStr& path)
{
    // Its parent may be destroyed meanwhile, and destroys it then.
    const QPointer<QFileDialog> window = new QFileDialog(GetParentWindow());
    if (!dialog.folder.IsEmpty())
        window->setDirectory(ToQString(dialog.folder));
    if (dialog.isFolder)
        PrepareForFolder(*window);
    else
        PrepareForFile(*window, dialog);
    const bool accepted = window->exec() == QDialog::Accepted;
    const QStringList files = accepted ? window->selectedFiles() : QStringList();
    delete window;
    if (files.isEmpty())
        return false;
    path = FromQString(QDir::toNativeSeparators(files.constFirst()));
    return true;
}

} // namespace CommonUI

#include "qt/QtClipboard.h"

#include "qt/QtText.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace CommonUI
{

CQtClipboard::~CQtClipboard() = default;

bool CQtClipboard::Put(const CStr& html, const CStr& text)
{
    auto* const data = new QMimeData;
    data->setHtml(ToQString(html));
    data->setText(ToQString(text));
    QClipboard* const clipboard = QGuiApplication::clipboard();
    clipboard->setMimeData(data);
    return clipboard->ownsClipboard();
}

} // namespace CommonUI

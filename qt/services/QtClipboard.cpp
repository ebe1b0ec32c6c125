#include "qt/services/QtClipboard.h"

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
    // A platform without a clipboard of its own keeps the data and owns nothing.
    return clipboard->ownsClipboard() || clipboard->mimeData() == data;
}

} // namespace CommonUI

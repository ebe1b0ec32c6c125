#include "qt/selection/detail/Mnemonics.h"

#include <utility>

namespace CommonUI
{

CMnemonics::CMnemonics(QString taken)
    : m_taken(std::move(taken))
{
}

QString CMnemonics::Mark(const QString& text)
{
    QString marked = text;
    marked.replace(u'&', QStringLiteral("&&"));
    for (qsizetype i = 0; i < marked.size(); ++i) {
        const QChar letter = marked[i].toLower();
        if (!letter.isLetter() || m_taken.contains(letter))
            continue;
        m_taken += letter;
        return marked.insert(i, u'&');
    }
    return marked;
}

} // namespace CommonUI

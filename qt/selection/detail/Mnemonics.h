#pragma once

#include <QString>

namespace CommonUI
{

/// Gives texts their mnemonics: the first letter that no other text of the window has, and none where all
/// letters are taken.
class CMnemonics
{
public:
    /// @param taken letters that are none, small
    explicit CMnemonics(QString taken);

    /// The text with its mnemonic marked; an ampersand of its own is shown as one.
    QString Mark(const QString& text);

private:
    QString m_taken;
};

} // namespace CommonUI

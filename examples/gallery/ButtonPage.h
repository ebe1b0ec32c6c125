#pragma once

#include <QPushButton>
#include <QVBoxLayout>

namespace Gallery
{

/// A page of buttons, one below the other and all as wide as the widest.
class CButtonPage : public QWidget
{
protected:
    CButtonPage()
    {
        auto* const column = new QWidget;
        m_buttons = new QVBoxLayout(column);
        m_buttons->setContentsMargins(0, 0, 0, 0);
        auto* const layout = new QVBoxLayout(this);
        layout->addWidget(column, 0, Qt::AlignLeft);
        layout->addStretch();
    }

    template<class FAction>
    void Add(const char* text, FAction action)
    {
        auto* const button = new QPushButton(QString::fromUtf8(text));
        connect(button, &QPushButton::clicked, this, action);
        m_buttons->addWidget(button);
    }

private:
    QVBoxLayout* m_buttons;
};

} // namespace Gallery

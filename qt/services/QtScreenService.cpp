#include "qt/services/QtScreenService.h"

#include <QGuiApplication>
#include <QScreen>

namespace CommonUI
{

namespace
{

SRect ToRect(const QRect& rect)
{
    return {rect.left(), rect.top(), rect.left() + rect.width(), rect.top() + rect.height()};
}

} // namespace

CQtScreenService::~CQtScreenService() = default;

std::vector<SScreen> CQtScreenService::GetScreens() const
{
    std::vector<SScreen> screens;
    for (const QScreen* const screen : QGuiApplication::screens())
        screens.push_back({ToRect(screen->geometry()), ToRect(screen->availableGeometry()),
                           qRound(100 * screen->devicePixelRatio())});
    return screens;
}

} // namespace CommonUI

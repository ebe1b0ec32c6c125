#pragma once

#include "examples/gallery/Log.h"

#include <span>

class QWidget;

namespace Gallery
{

/// A page of the gallery.
struct SPage {
    const char* key;  ///< the name of its pictures
    const char* name; ///< what it is called in the list
    QWidget* (*make)(const FLog& log);
    /// Brings the page into the state that its picture shows; null if it is at once.
    void (*stage)(QWidget& page);
    /// Opens a modal window over the page for its picture, and returns when that is closed; null if there is
    /// none.
    void (*open)() = nullptr;
};

/// All pages, in their order. A new one is a row here and a source of its own.
std::span<const SPage> GetPages();

QWidget* MakeNumericEditsPage(const FLog& log);
void StageNumericEditsPage(QWidget& page);
QWidget* MakeProgressPage(const FLog& log);
void StageProgressPage(QWidget& page);
QWidget* MakeNumberFormatPage(const FLog& log);
void StageNumberFormatPage(QWidget& page);
QWidget* MakeGridItemsPage(const FLog& log);
void StageGridItemsPage(QWidget& page);
QWidget* MakeResultGridPage(const FLog& log);
void StageResultGridPage(QWidget& page);
QWidget* MakeSelectionPage(const FLog& log);
void StageSelectionPage(QWidget& page);
QWidget* MakeResultDialogPage(const FLog& log);
void StageResultDialogPage(QWidget& page);
QWidget* MakeListsPage(const FLog& log);
void StageListsPage(QWidget& page);
QWidget* MakeControlsPage(const FLog& log);
void StageControlsPage(QWidget& page);
QWidget* MakeFoldersPage(const FLog& log);
void StageFoldersPage(QWidget& page);
QWidget* MakeTabsPage(const FLog& log);
QWidget* MakeDialogsPage(const FLog& log);
void StageDialogsPage(QWidget& page);
QWidget* MakeStartPanePage(const FLog& log);
void StageStartPanePage(QWidget& page);
QWidget* MakeSettingsPage(const FLog& log);
void StageSettingsPage(QWidget& page);
QWidget* MakeServicesPage(const FLog& log);
void OpenMessageBox();

} // namespace Gallery

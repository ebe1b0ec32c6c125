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
};

/// All pages, in their order. A new one is a row here and a source of its own.
std::span<const SPage> GetPages();

QWidget* MakeNumericEditsPage(const FLog& log);
void StageNumericEditsPage(QWidget& page);
QWidget* MakeServicesPage(const FLog& log);

} // namespace Gallery

#pragma once
// The pictures playgrounds show are drawn by the module's own generators, off the main thread.

#include "media/VUTesterImageGenerator.h"

#include <QObject>

#include <functional>
#include <memory>

// Draws `generator`'s image on its queue and hands it to `deliver` on the main thread, unless
// `context` has gone by then. Pending work (ui::Settle) until it is handed over.
VUTESTER_EXPORT void VUTesterDeliverGeneratedImage(std::shared_ptr<VUTesterImageGenerator> generator, QObject *context,
                                                   std::function<void(graphics::ImagePtr)> deliver);

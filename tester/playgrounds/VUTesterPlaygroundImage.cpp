#include "playgrounds/VUTesterPlaygroundImage.h"

#include "dispatch/Dispatch.h"
#include "ui/Settle.h"

#include <QPointer>

void VUTesterDeliverGeneratedImage(std::shared_ptr<VUTesterImageGenerator> generator, QObject *context,
                                   std::function<void(graphics::ImagePtr)> deliver)
{
    ui::PendingWork pending(QStringLiteral("a generated picture"));
    // A generator held by a shared_ptr lives until its request has been served.
    generator->generateImageWithCompletionHandler(
        [context = QPointer<QObject>(context), deliver = std::move(deliver), pending](graphics::ImagePtr image) mutable {
            dispatch::Queue::main()->async([context, deliver = std::move(deliver), image, pending]() mutable {
                if (context)
                    deliver(image);
                pending.end();
            });
        });
}

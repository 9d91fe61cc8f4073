#include "media/VUTesterTestPatternMovie.h"

#include "media/VUTesterDefaultVideoGenerator.h"

#include <dispatch/Dispatch.h>
#include <ui/Settle.h>

#include <QObject>
#include <QPointer>

void VUTesterMakeTestPatternMovie(QSizeF size, double duration, QObject *context,
                                  std::function<void(const QString &path, const QString &error)> handler)
{
    VUTesterDefaultVideoGenerator generator;
    generator.setVideoSize(size);
    generator.setVideoDuration(duration);
    ui::PendingWork pending(QStringLiteral("the test pattern movie of %1 x %2, %3 s").arg(size.width()).arg(size.height()).arg(duration));
    generator.generateVideoWithCompletionHandler([guard = QPointer<QObject>(context), handler = std::move(handler), pending](
                                                     const QString &path, VUTesterOptionalError error) {
        dispatch::Queue::main()->async([guard, handler, pending, path, error]() mutable {
            if (guard)
                handler(path, error ? error->debugDescription : QString());
            pending.end();
        });
    });
}

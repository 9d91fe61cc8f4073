#include "VUTesterVideoGenerator.h"

VUTesterVideoGenerator::~VUTesterVideoGenerator() = default;

void VUTesterVideoGenerator::generateVideoWithFileNameSuffix(const QString &, CompletionHandler) {}

void VUTesterVideoGenerator::generateVideoWithCompletionHandler(CompletionHandler handler)
{
    generateVideoWithFileNameSuffix(QString(), std::move(handler));
}

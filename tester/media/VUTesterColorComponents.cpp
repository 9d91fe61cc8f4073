#include "VUTesterColorComponents.h"

bool vutester_getRed(const graphics::Color &color, double *red, double *green, double *blue, double *alpha)
{
    const graphics::Color rgb = color.convertedToDeviceRGB();
    if (rgb.componentCount() != 4)
        return false;
    double *outputs[] = {red, green, blue, alpha};
    for (int i = 0; i < 4; ++i)
        if (outputs[i])
            *outputs[i] = rgb.component(i);
    return true;
}

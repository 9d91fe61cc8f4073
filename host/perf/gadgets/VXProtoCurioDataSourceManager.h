#pragma once
// The prototype data of the gadget collection: sections of mixed cards, made up the same way on
// every run from a fixed seed, so two runs scroll through the same content. Texts run from one to
// six sentences, so card heights vary as a real feed's do.

#include "VXGadget.h"

#include "ui/IndexPath.h"

#include <vector>

class VXProtoCurioDataSourceManager {
public:
    explicit VXProtoCurioDataSourceManager(int sections = 40, int gadgetsPerSection = 30);

    int numberOfSections() const { return int(m_sections.size()); }
    int numberOfGadgetsInSection(int section) const { return int(m_sections[size_t(section)].size()); }
    const VXGadget &gadgetAtIndexPath(const ui::IndexPath &indexPath) const;

private:
    std::vector<std::vector<VXGadget>> m_sections;
};

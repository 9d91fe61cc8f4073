#include "VXProtoCurioDataSourceManager.h"

#include <QStringList>

#include <random>

namespace {

const char *const kWords[] = {
    "morning", "harbour", "light", "walk", "garden", "friends", "market", "quiet", "river", "summer", "mountain", "evening",
    "city", "rain", "picnic", "trail", "coast", "museum", "bridge", "festival", "snow", "lake", "sunset", "weekend",
};
const char *const kTitles[] = {"Trips", "Recently Added", "People", "Places", "Favourites", "Memories", "Shared", "Featured"};

QString sentence(std::mt19937 &random)
{
    std::uniform_int_distribution<int> length(5, 14), word(0, int(std::size(kWords)) - 1);
    QStringList words;
    for (int i = length(random); i > 0; --i)
        words << QString::fromLatin1(kWords[word(random)]);
    words[0][0] = words[0][0].toUpper();
    return words.join(QLatin1Char(' ')) + QLatin1Char('.');
}

} // namespace

VXProtoCurioDataSourceManager::VXProtoCurioDataSourceManager(int sections, int gadgetsPerSection)
{
    std::mt19937 random(20160613);
    std::uniform_int_distribution<int> kind(0, 9), sentences(1, 6), nested(6, 18);
    m_sections.resize(size_t(sections));
    for (int s = 0; s < sections; ++s) {
        auto &gadgets = m_sections[size_t(s)];
        gadgets.reserve(size_t(gadgetsPerSection));
        for (int g = 0; g < gadgetsPerSection; ++g) {
            VXGadget gadget;
            const int roll = kind(random);
            // Half text, three in ten pictures, two in ten rows.
            gadget.kind = roll < 5 ? VXGadget::Kind::Text : roll < 8 ? VXGadget::Kind::Image : VXGadget::Kind::NestedRow;
            gadget.title = QStringLiteral("%1 %2").arg(QString::fromLatin1(kTitles[size_t(g) % std::size(kTitles)])).arg(s * gadgetsPerSection + g + 1);
            gadget.seed = random();
            if (gadget.kind == VXGadget::Kind::Text) {
                QStringList text;
                for (int i = sentences(random); i > 0; --i)
                    text << sentence(random);
                gadget.body = text.join(QLatin1Char(' '));
            } else if (gadget.kind == VXGadget::Kind::NestedRow) {
                gadget.nestedItemCount = nested(random);
            }
            gadgets.push_back(std::move(gadget));
        }
    }
}

const VXGadget &VXProtoCurioDataSourceManager::gadgetAtIndexPath(const ui::IndexPath &indexPath) const
{
    return m_sections[size_t(indexPath.section())][size_t(indexPath.item())];
}

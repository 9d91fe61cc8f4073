#include "playgrounds/views/VUTesterViewsPlaygroundViewController.h"

#include "playgrounds/VUTesterPlaygroundViews.h"
#include "playgrounds/views/VUTesterViewSettings.h"

#include <views/VUDurationBadgeView.h>
#include <views/VUFavoriteBadgeView.h>
#include <views/VUProgressRingView.h>
#include <views/VUSelectionMarkView.h>
#include <views/VUStirShotBadgeView.h>

#include <QGridLayout>
#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QScrollArea>
#include <QVBoxLayout>

namespace {

constexpr int kTileSize = 100;
constexpr int kColumns = 3;
// From the tile's edges to a badge, as in the library grid.
constexpr double kInset = 5;

} // namespace

// A grid cell's stand-in: a background of the chosen kind with one view placed on it.
class SpecimenTile : public QWidget {
public:
    enum class Placement { Center, TopLeft, BottomLeft, BottomRight, BottomEdge };

    SpecimenTile(VUBadgeView *view, Placement placement) : m_view(view), m_placement(placement)
    {
        setFixedSize(kTileSize, kTileSize);
        view->setParent(this);
    }

    void setBackground(qint64 background)
    {
        m_background = background;
        update();
    }

    void placeView()
    {
        const QSize size = m_placement == Placement::BottomEdge ? QSize(width(), m_view->sizeHint().height()) : m_view->sizeHint();
        // Badges at a corner keep their glyph's centre where a grid cell puts a mark of the
        // default size, growing towards the tile's middle.
        const int inset = int(kInset);
        QPoint at;
        switch (m_placement) {
        case Placement::Center: at = QPoint((width() - size.width()) / 2, (height() - size.height()) / 2); break;
        case Placement::TopLeft: at = QPoint(inset, inset); break;
        case Placement::BottomLeft: at = QPoint(inset, height() - inset - size.height()); break;
        case Placement::BottomRight: at = QPoint(width() - inset - size.width(), height() - inset - size.height()); break;
        case Placement::BottomEdge: at = QPoint(0, height() - size.height()); break;
        }
        m_view->setGeometry(QRect(at, size));
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        switch (m_background) {
        case VUTesterViewSettings::BackgroundLight: painter.fillRect(rect(), QColor(242, 242, 247)); break;
        case VUTesterViewSettings::BackgroundDark: painter.fillRect(rect(), QColor(28, 28, 30)); break;
        default: {
            // A bright sky over a warm ground: a white glyph must read on both.
            QLinearGradient picture(0, 0, width(), height());
            picture.setColorAt(0, QColor(235, 244, 255));
            picture.setColorAt(0.45, QColor(120, 170, 220));
            picture.setColorAt(1, QColor(200, 110, 40));
            painter.fillRect(rect(), picture);
        }
        }
    }

private:
    VUBadgeView *m_view;
    Placement m_placement;
    qint64 m_background = VUTesterViewSettings::BackgroundPicture;
};

VUTesterViewsPlaygroundViewController::VUTesterViewsPlaygroundViewController()
{
    setTitle(QStringLiteral("Views"));
}

VUBadgeView *VUTesterViewsPlaygroundViewController::specimenView(const QString &caption) const
{
    for (const Specimen &specimen : m_specimens)
        if (specimen.caption == caption)
            return specimen.view;
    return nullptr;
}

QWidget *VUTesterViewsPlaygroundViewController::loadView()
{
    using Placement = SpecimenTile::Placement;
    const auto favorite = [](bool isFavorite) {
        auto *view = new VUFavoriteBadgeView;
        view->setFavorite(isFavorite);
        return view;
    };
    const auto stirShot = [](bool off) {
        auto *view = new VUStirShotBadgeView;
        view->setOff(off);
        return view;
    };
    const auto duration = [](double seconds, bool shade) {
        auto *view = new VUDurationBadgeView;
        view->setDuration(seconds);
        view->setShowsShade(shade);
        return view;
    };
    const auto selection = [](bool selected, bool enabled) {
        auto *view = new VUSelectionMarkView;
        view->setSelected(selected);
        view->setEnabled(enabled);
        return view;
    };
    const auto ring = [](VUProgressRingView::State state) {
        auto *view = new VUProgressRingView;
        view->setState(state);
        return view;
    };
    struct Entry {
        const char *section;
        const char *caption;
        VUBadgeView *view;
        Placement placement;
    };
    const Entry entries[] = {
        {"Favorites", "Favorite", favorite(true), Placement::BottomLeft},
        {"Favorites", "Not Favorite", favorite(false), Placement::BottomLeft},
        {"Stir Shots", "Stir Shot", stirShot(false), Placement::TopLeft},
        {"Stir Shots", "Stir Shot Off", stirShot(true), Placement::TopLeft},
        {"Durations", "Seconds", duration(5, true), Placement::BottomEdge},
        {"Durations", "Minutes", duration(62, true), Placement::BottomEdge},
        {"Durations", "Hours", duration(3723, true), Placement::BottomEdge},
        {"Durations", "No Shade", duration(5, false), Placement::BottomEdge},
        {"Selection Marks", "Not Selected", selection(false, true), Placement::BottomRight},
        {"Selection Marks", "Selected", selection(true, true), Placement::BottomRight},
        {"Selection Marks", "Unavailable", selection(false, false), Placement::BottomRight},
        {"Progress Rings", "Progress", ring(VUProgressRingView::State::Determinate), Placement::Center},
        {"Progress Rings", "Waiting", ring(VUProgressRingView::State::Indeterminate), Placement::Center},
        {"Progress Rings", "Done", ring(VUProgressRingView::State::Completed), Placement::Center},
    };

    auto *scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto *content = new QWidget;
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(16, 12, 16, 16);
    QGridLayout *grid = nullptr;
    int index = 0;
    QString section;
    for (const Entry &entry : entries) {
        if (section != QLatin1String(entry.section)) {
            section = QString::fromLatin1(entry.section);
            column->addWidget(VUTesterPlaygroundHeading(section));
            grid = new QGridLayout;
            grid->setHorizontalSpacing(10);
            grid->setVerticalSpacing(8);
            grid->setAlignment(Qt::AlignLeft);
            column->addLayout(grid);
            index = 0;
        }
        auto *tile = new SpecimenTile(entry.view, entry.placement);
        auto *caption = new QLabel(QString::fromLatin1(entry.caption));
        caption->setAlignment(Qt::AlignHCenter);
        auto *cell = new QVBoxLayout;
        cell->setSpacing(2);
        cell->addWidget(tile);
        cell->addWidget(caption);
        grid->addLayout(cell, index / kColumns, index % kColumns);
        ++index;
        m_tiles << tile;
        m_specimens.append({section, caption->text(), entry.view});
    }
    column->addStretch();
    scroll->setWidget(content);
    connect(VUTesterViewSettings::sharedInstance(), &TWSettings::valueChanged, this, &VUTesterViewsPlaygroundViewController::_applySettings);
    _applySettings();
    return scroll;
}

void VUTesterViewsPlaygroundViewController::_applySettings()
{
    const VUTesterViewSettings *settings = VUTesterViewSettings::sharedInstance();
    for (const Specimen &specimen : std::as_const(m_specimens)) {
        VUBadgeView *view = specimen.view;
        if (auto *ring = qobject_cast<VUProgressRingView *>(view)) {
            ring->setGlyphSize(settings->progressRingSize());
            ring->setLineWidth(settings->progressLineWidth());
            ring->setColor(VUTesterViewSettings::colorForValue(settings->progressColor()));
            ring->setProgress(settings->progress());
        } else if (qobject_cast<VUSelectionMarkView *>(view)) {
            view->setGlyphSize(settings->selectionMarkSize());
            view->setColor(VUTesterViewSettings::colorForValue(settings->selectionColor()));
        } else if (qobject_cast<VUDurationBadgeView *>(view)) {
            view->setGlyphSize(settings->durationFontSize());
            view->setColor(VUTesterViewSettings::colorForValue(settings->badgeColor()));
        } else {
            view->setGlyphSize(settings->badgeSize());
            view->setColor(VUTesterViewSettings::colorForValue(settings->badgeColor()));
        }
    }
    for (SpecimenTile *tile : std::as_const(m_tiles)) {
        tile->setBackground(settings->background());
        tile->placeView();
    }
}

#include "playgrounds/overlay/VUTesterVideoOverlayButtonPlaygroundViewController.h"

#include "media/VUTesterTestPatternMovie.h"
#include "playgrounds/VUTesterPlaygroundViews.h"

#include <overlay/VUVideoOverlayButton.h>
#include <player/VUMoviePlayerView.h>

#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QVBoxLayout>

namespace {

struct StyleRow {
    VUVideoOverlayButton::Style style;
    const char *title;
};
constexpr StyleRow kStyles[] = {
    {VUVideoOverlayButton::Style::DarkDisc, "Dark Disc"},
    {VUVideoOverlayButton::Style::LightDisc, "Light Disc"},
    {VUVideoOverlayButton::Style::Outline, "Outline"},
    {VUVideoOverlayButton::Style::GlyphOnly, "Glyph Only"},
};
// The disabled column shows a play button that takes no taps.
struct StateColumn {
    VUVideoOverlayButton::Mode mode;
    bool enabled;
    const char *title;
};
constexpr StateColumn kStates[] = {
    {VUVideoOverlayButton::Mode::Play, true, "Play"},
    {VUVideoOverlayButton::Mode::Pause, true, "Pause"},
    {VUVideoOverlayButton::Mode::Loading, true, "Loading"},
    {VUVideoOverlayButton::Mode::Play, false, "Disabled"},
};

// A thumbnail-like square of a picture, cut to fill it, with a button in its middle.
class PictureTile : public QWidget {
public:
    PictureTile(const QImage &picture, int side) : m_picture(picture) { setFixedSize(side, side); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        const QSizeF shown = QSizeF(m_picture.size()).scaled(QSizeF(size()), Qt::KeepAspectRatioByExpanding);
        painter.drawImage(QRectF(QPointF((width() - shown.width()) / 2, (height() - shown.height()) / 2), shown), m_picture);
    }

private:
    QImage m_picture;
};

// A picture like a thumbnail of a bright sky or of a night, with some detail for the button to
// stand out against.
QImage picture(bool light)
{
    QImage image(300, 300, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 0, 300);
    sky.setColorAt(0, light ? QColor(0xcf, 0xe6, 0xff) : QColor(0x0b, 0x10, 0x26));
    sky.setColorAt(1, light ? QColor(0xff, 0xf7, 0xe0) : QColor(Qt::black));
    painter.fillRect(image.rect(), sky);
    painter.setPen(Qt::NoPen);
    // A fixed scatter of soft clouds by day, small lights by night.
    for (int i = 0; i < 24; ++i) {
        const QPointF at((i * 97) % 300, (i * 61) % 300);
        const double radius = light ? 18 + (i * 7) % 22 : 1.5 + (i % 3);
        painter.setBrush(light ? QColor(255, 255, 255, 150) : QColor(255, 236, 190, 220));
        painter.drawEllipse(at, radius, radius * (light ? 0.6 : 1.0));
    }
    return image;
}

} // namespace

VUTesterVideoOverlayButtonPlaygroundViewController::VUTesterVideoOverlayButtonPlaygroundViewController(
    VUTesterVideoOverlayButtonSettings *settings, QObject *parent)
    : ui::ViewController(parent)
    , m_settings(settings)
{
    setTitle(QStringLiteral("Video Overlay Button"));
    connect(settings, &TWSettings::valueChanged, this, [this] {
        if (isViewLoaded())
            _rebuild();
    });
}

QWidget *VUTesterVideoOverlayButtonPlaygroundViewController::loadView()
{
    m_scrollArea = new QScrollArea;
    m_scrollArea->setWidgetResizable(true);
    m_scrollArea->setFrameShape(QFrame::NoFrame);
    _rebuild();
    return m_scrollArea;
}

void VUTesterVideoOverlayButtonPlaygroundViewController::_rebuild()
{
    m_matrixButtons.clear();
    m_liveVideo = nullptr;
    m_liveButton = nullptr;
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(16, 12, 16, 16);
    layout->setSpacing(12);
    if (m_settings->showsLiveVideo())
        layout->addWidget(_liveSection());
    const qint64 pictures = m_settings->pictures();
    if (pictures != VUTesterVideoOverlayButtonSettings::PicturesDark)
        layout->addWidget(_matrix(picture(true), QStringLiteral("Over a light picture")));
    if (pictures != VUTesterVideoOverlayButtonSettings::PicturesLight)
        layout->addWidget(_matrix(picture(false), QStringLiteral("Over a dark picture")));
    layout->addStretch(1);
    m_scrollArea->setWidget(content);
}

QWidget *VUTesterVideoOverlayButtonPlaygroundViewController::_liveSection()
{
    auto *section = new QWidget;
    auto *layout = new QGridLayout(section);
    layout->setContentsMargins(0, 0, 0, 0);
    m_liveVideo = new VUMoviePlayerView;
    m_liveVideo->setFixedHeight(200);
    m_liveVideo->player()->setLooping(true);
    m_liveButton = new VUVideoOverlayButton;
    m_liveButton->setSize(VUVideoOverlayButton::Size(m_settings->buttonSize()));
    layout->addWidget(VUTesterPlaygroundHeading(QStringLiteral("Live video")), 0, 0);
    layout->addWidget(m_liveVideo, 1, 0);
    layout->addWidget(m_liveButton, 1, 0, Qt::AlignCenter);

    VUMoviePlayer *player = m_liveVideo->player();
    connect(m_liveButton, &QAbstractButton::clicked, player, [player] { player->isPlaying() ? player->pause() : player->play(); });
    connect(player, &VUMoviePlayer::statusChanged, this, &VUTesterVideoOverlayButtonPlaygroundViewController::_updateLiveButton);
    connect(player, &VUMoviePlayer::rateChanged, this, &VUTesterVideoOverlayButtonPlaygroundViewController::_updateLiveButton);
    m_makingMovie = true;
    _updateLiveButton();
    VUTesterMakeTestPatternMovie(QSizeF(384, 216), 3, m_liveVideo, [this, video = m_liveVideo](const QString &path, const QString &) {
        m_makingMovie = false;
        video->player()->setMovie(path);
        _updateLiveButton();
    });
    return section;
}

void VUTesterVideoOverlayButtonPlaygroundViewController::_updateLiveButton()
{
    if (!m_liveButton)
        return;
    const VUMoviePlayer *player = m_liveVideo->player();
    const bool loading = m_makingMovie || player->status() == VUMoviePlayer::Status::Loading;
    m_liveButton->setMode(loading ? VUVideoOverlayButton::Mode::Loading
                                  : player->isPlaying() ? VUVideoOverlayButton::Mode::Pause : VUVideoOverlayButton::Mode::Play);
    m_liveButton->setEnabled(loading || player->status() == VUMoviePlayer::Status::ReadyToPlay);
}

QWidget *VUTesterVideoOverlayButtonPlaygroundViewController::_matrix(const QImage &image, const QString &title)
{
    const auto size = VUVideoOverlayButton::Size(m_settings->buttonSize());
    const int side = int(std::max(76.0, VUVideoOverlayButton::diameterForSize(size) * 1.5));
    auto *matrix = new QWidget;
    auto *grid = new QGridLayout(matrix);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(4);
    grid->addWidget(VUTesterPlaygroundHeading(title), 0, 0, 1, int(std::size(kStates)));
    for (int column = 0; column < int(std::size(kStates)); ++column)
        grid->addWidget(new QLabel(QString::fromLatin1(kStates[column].title)), 1, column, Qt::AlignHCenter);
    int row = 2;
    for (const StyleRow &style : kStyles) {
        grid->addWidget(new QLabel(QString::fromLatin1(style.title)), row++, 0, 1, int(std::size(kStates)));
        for (int column = 0; column < int(std::size(kStates)); ++column) {
            auto *tile = new PictureTile(image, side);
            auto *button = new VUVideoOverlayButton(tile);
            button->setOverlayStyle(style.style);
            button->setSize(size);
            button->setMode(kStates[column].mode);
            button->setEnabled(kStates[column].enabled);
            button->move((side - button->width()) / 2, (side - button->height()) / 2);
            m_matrixButtons.append(button);
            grid->addWidget(tile, row, column);
        }
        ++row;
    }
    grid->setColumnStretch(int(std::size(kStates)), 1);
    return matrix;
}

#include "playgrounds/oneup/VUTesterOneUpPresentationPlaygroundViewController.h"

#include "layouts/VUTesterBrowsingSession.h"
#include "playgrounds/beamcast/VUTesterBeamcastScreenSimulator.h"
#include "playgrounds/beamcast/VUTesterBeamcastScreenSimulatorViewController.h"

#include <beamcast/VUBeamcastRootViewController.h>
#include <browsing/VUAssetImageView.h>
#include <browsing/VULibraryBrowsingSession.h>
#include <browsing/VUOneUpViewController.h>

#include "ui/AlertController.h"
#include "ui/Autoresizing.h"
#include "ui/BarButtonItem.h"
#include "ui/NavigationController.h"
#include "ui/Window.h"

#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

namespace {

// Shows one asset, whole, on black: the picture an external screen gets.
class AssetContentProvider : public VHBeamcastControllerContentProvider {
public:
    AssetContentProvider(VUMediaProviderPtr mediaProvider, VUDisplayAssetPtr asset) : m_mediaProvider(std::move(mediaProvider)), m_asset(std::move(asset)) {}

    ui::ViewController *contentViewControllerForBeamcastController(VHBeamcastController *) override
    {
        auto *controller = new ui::ViewController;
        auto *image = new VUAssetImageView(controller->view());
        image->setObjectName(QStringLiteral("beamcastAsset"));
        auto *layout = new QVBoxLayout(controller->view());
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(image);
        if (m_asset)
            image->showAsset(m_mediaProvider, *m_asset, QSizeF(m_asset->pixelWidth(), m_asset->pixelHeight()));
        return controller;
    }

private:
    VUMediaProviderPtr m_mediaProvider;
    VUDisplayAssetPtr m_asset;
};

VUBrowsingSessionPtr sessionFor(const VUTesterOneUpPresentationSettings &settings)
{
    if (settings.dataSource() != VUTesterOneUpPresentationSettings::DataSourcePhotoLibrary)
        return VUTesterBrowsingSession::newBrowsingSession();
    const auto sectioning = settings.librarySections() == VUTesterOneUpPresentationSettings::LibrarySectionsOne
                                ? VULibraryAssetsDataSource::Sectioning::OneSection
                                : VULibraryAssetsDataSource::Sectioning::ByDay;
    return VULibraryBrowsingSession::newBrowsingSession(nullptr, sectioning);
}

} // namespace

VUTesterOneUpPresentationPlaygroundViewController::VUTesterOneUpPresentationPlaygroundViewController(
    const VUTesterOneUpPresentationSettings &settings, QObject *parent)
    : ui::ViewController(parent)
    , m_session(sessionFor(settings))
    , m_initialItem(settings.initialItem())
    , m_beamcastSize(settings.beamcastScreenWidth(), settings.beamcastScreenWidth() * 9 / 16)
{
    setTitle(QStringLiteral("1-Up Presentation"));
    navigationItem()->setRightBarButtonItem(new ui::BarButtonItem(QStringLiteral("Beamcast"), [this](ui::BarButtonItem *) { _beamcast(); }));
}

VUTesterOneUpPresentationPlaygroundViewController::~VUTesterOneUpPresentationPlaygroundViewController()
{
    delete m_externalWindow.data();
}

QWidget *VUTesterOneUpPresentationPlaygroundViewController::loadView()
{
    const qint64 items = m_session->dataSourceManager()->assetsDataSource()->numberOfItemsInSection(0);
    m_oneUp = new VUOneUpViewController(m_session, ui::IndexPath::forItem(std::clamp<qint64>(m_initialItem, 0, std::max<qint64>(0, items - 1)), 0), this);
    m_oneUp->setParentViewController(this);
    // Where the browser stands ("4 of 14") names the screen.
    const auto followTitle = [this] { setTitle(m_oneUp->title().isEmpty() ? QStringLiteral("1-Up Presentation") : m_oneUp->title()); };
    connect(m_oneUp, &ui::ViewController::titleChanged, this, followTitle);
    followTitle();
    auto *view = new QWidget;
    auto *layout = new QVBoxLayout(view);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_oneUp->view());
    m_emptyLabel = new QLabel(tr("No photos or videos in the photo library.\nFill it from Utilities, Library Filler."), view);
    m_emptyLabel->setObjectName(QStringLiteral("emptyLabel"));
    m_emptyLabel->setAlignment(Qt::AlignCenter);
    m_emptyLabel->setWordWrap(true);
    m_emptyLabel->setStyleSheet(QStringLiteral("color: white"));
    layout->addWidget(m_emptyLabel);
    // The library's data source follows its changes: the browser may fill, or empty, while shown.
    connect(m_session->dataSourceManager().get(), &VUAssetsDataSourceManager::assetsDataSourceChanged, this,
            &VUTesterOneUpPresentationPlaygroundViewController::_updateEmptyLabel);
    _updateEmptyLabel();
    return view;
}

bool VUTesterOneUpPresentationPlaygroundViewController::isEmpty() const
{
    const VUAssetsDataSourcePtr &source = m_session->dataSourceManager()->assetsDataSource();
    for (qint64 section = 0, sections = source ? source->numberOfSections() : 0; section < sections; ++section)
        if (source->numberOfItemsInSection(section) > 0)
            return false;
    return true;
}

void VUTesterOneUpPresentationPlaygroundViewController::_updateEmptyLabel()
{
    const bool empty = isEmpty();
    m_emptyLabel->setVisible(empty);
    m_oneUp->view()->setVisible(!empty);
}

std::shared_ptr<VHBeamcastControllerContentProvider> VUTesterOneUpPresentationPlaygroundViewController::currentItemContentProvider() const
{
    VUAssetReferencePtr reference;
    if (m_oneUp)
        reference = m_session->dataSourceManager()->assetsDataSource()->assetReferenceAtIndexPath(m_oneUp->currentIndexPath());
    return std::make_shared<AssetContentProvider>(m_session->mediaProvider(), reference ? reference->asset() : nullptr);
}

void VUTesterOneUpPresentationPlaygroundViewController::showCurrentItemOnSimulatedScreen()
{
    VUTesterBeamcastScreenSimulator *simulator = VUTesterBeamcastScreenSimulator::sharedSimulator();
    simulator->hideScreen();
    simulator->showScreenWithContentSize(m_beamcastSize, currentItemContentProvider());
}

void VUTesterOneUpPresentationPlaygroundViewController::showCurrentItemOnScreen(QScreen *screen)
{
    delete m_externalWindow.data();
    auto *root = new VUBeamcastRootViewController;
    root->setChildViewController(currentItemContentProvider()->contentViewControllerForBeamcastController(nullptr), false);
    m_externalWindow = new ui::Window;
    m_externalWindow->setRootViewController(root);
    m_externalWindow->setScreen(screen);
    m_externalWindow->setGeometry(screen->geometry());
    m_externalWindow->showFullScreen();
}

void VUTesterOneUpPresentationPlaygroundViewController::_beamcast()
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    QScreen *external = nullptr;
    for (QScreen *screen : screens)
        if (view()->screen() != screen)
            external = screen;
    if (!external) {
        showCurrentItemOnSimulatedScreen();
        return;
    }
    auto *alert = new ui::AlertController(QStringLiteral("Beamcast"), QStringLiteral("A second screen is attached: show the item there?"));
    alert->addAction({QStringLiteral("Show on %1").arg(external->name()), ui::AlertAction::Style::Default, [this, external] { showCurrentItemOnScreen(external); }});
    alert->addAction({QStringLiteral("Simulated Screen"), ui::AlertAction::Style::Default, [this] { showCurrentItemOnSimulatedScreen(); }});
    alert->addAction({QStringLiteral("Cancel"), ui::AlertAction::Style::Cancel, {}});
    presentViewController(alert, true);
}

QList<ui::TappableRow> VUTesterOneUpPresentationPlaygroundViewController::tappableRows()
{
    return {{QString(), QStringLiteral("Show on Simulated Screen"), [this] { showCurrentItemOnSimulatedScreen(); }},
            {QString(), QStringLiteral("Hide Simulated Screen"), [] { VUTesterBeamcastScreenSimulator::sharedSimulator()->hideScreen(); }}};
}

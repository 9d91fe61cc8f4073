#include "layouts/VUTesterLayoutsPlaygroundViewController.h"

#include "dispatch/Dispatch.h"
#include "ui/AlertController.h"
#include "ui/Autoresizing.h"
#include "ui/BarButtonItem.h"
#include "ui/NavigationController.h"
#include "ui/SegmentedControl.h"
#include "ui/TapGestureRecognizer.h"

#include <cmath>

namespace {

// Identifies the controller's own observation of the input manager.
int kContentSizeObservationContext;

constexpr double kMargin = 10;
constexpr double kTop = 50;

} // namespace

VUTesterLayoutsPlaygroundViewController::VUTesterLayoutsPlaygroundViewController(VXLayoutGeneratorFactory layoutGeneratorFactory,
                                                                                 VUTesterLayoutInput::IndexMap initialWeights,
                                                                                 VUTesterLayoutsPlaygroundSettings *settings, QObject *parent)
    : ui::ViewController(parent)
    , m_layoutGeneratorFactory(std::move(layoutGeneratorFactory))
    , m_settings(settings)
    , m_inputManager(std::make_shared<VUTesterLayoutInputManager>(std::move(initialWeights), settings))
{
}

VUTesterLayoutsPlaygroundViewController::~VUTesterLayoutsPlaygroundViewController()
{
    m_inputManager->unregisterChangeObserver(this, &kContentSizeObservationContext);
    // The views go with the view, after this object; they must not outlive the scroll view's
    // delegate in between.
    if (m_scrollView)
        m_scrollView->setDelegate(nullptr);
}

qint64 VUTesterLayoutsPlaygroundViewController::firstItemCount(qint64 maximumNumberOfItems, qint64 maximumTotalNumberOfItems)
{
    // The counts f to m add up to about (m^2 - f^2) / 2: f keeps that near the total.
    const qint64 d = maximumNumberOfItems * maximumNumberOfItems - 2 * maximumTotalNumberOfItems;
    if (d < 1)
        return 1;
    auto root = qint64(std::sqrt(double(d)));
    while (root * root > d)
        --root;
    while (root * root < d)
        ++root;
    return std::max<qint64>(root, 1);
}

void VUTesterLayoutsPlaygroundViewController::viewDidLoad()
{
    ui::ViewController::viewDidLoad();
    if (ui::NavigationController *navigation = navigationController())
        navigation->setToolbarHidden(false);

    // Segments stand for the tap behaviours 0 to 7, in order.
    m_segmentedControl = new ui::SegmentedControl({QString(), QStringLiteral("━"), QStringLiteral("⤹"), QStringLiteral("↺"), QStringLiteral("↺━"),
                                                   QStringLiteral("❤️"), QStringLiteral("💚"), QStringLiteral("💔")});
    m_segmentedControl->setSelectedSegmentIndex(m_settings ? int(m_settings->tapBehavior()) : 0);
    connect(m_segmentedControl, &ui::SegmentedControl::valueChanged, this, &VUTesterLayoutsPlaygroundViewController::_handleSegmentedControl);
    using System = ui::BarButtonItem::SystemItem;
    setToolbarItems({new ui::BarButtonItem(System::FlexibleSpace, {}), new ui::BarButtonItem(m_segmentedControl),
                     new ui::BarButtonItem(System::FlexibleSpace, {}),
                     new ui::BarButtonItem(QStringLiteral("Legend"), [this](ui::BarButtonItem *) { _showLegend(); }),
                     new ui::BarButtonItem(System::FlexibleSpace, {})});

    QWidget *root = view();
    QPalette palette = root->palette();
    palette.setColor(QPalette::Window, Qt::white);
    root->setPalette(palette);
    root->setAutoFillBackground(true);
    auto *tap = new ui::TapGestureRecognizer(root);
    connect(tap, &ui::GestureRecognizer::action, this, &VUTesterLayoutsPlaygroundViewController::_handleTap);

    m_scrollView = new ui::ScrollView(root);
    m_scrollView->setGeometry(root->rect());
    ui::setAutoresizingMask(m_scrollView, ui::AutoresizingMask(ui::Autoresizing::FlexibleWidth) | ui::Autoresizing::FlexibleHeight);
    m_contentView = new QWidget(m_scrollView->contentView());
    m_contentView->setGeometry(root->rect());
    m_scrollView->setMinimumZoomScale(0.1);
    m_scrollView->setDelegate(this);

    const qint64 last = m_settings ? m_settings->maximumNumberOfItems() : 0;
    const qint64 first = m_settings ? firstItemCount(last, m_settings->maximumTotalNumberOfItems()) : 1;
    const double width = m_settings ? m_settings->referenceWidth() : 0;
    const double height = m_settings && m_settings->referenceAspectRatio() > 0 ? width / m_settings->referenceAspectRatio() : width;
    double x = kMargin;
    for (qint64 count = first; count <= last; ++count) {
        const QRectF frame(x, kTop, width, height);
        auto *outputView = new VUTesterLayoutGeneratorOutputView(frame, m_contentView);
        outputView->setSettings(m_settings);
        outputView->setLayoutGeneratorFactory(m_layoutGeneratorFactory);
        outputView->setNumberOfItems(count);
        outputView->setMaximumNumberOfItems(last);
        outputView->setInputManager(m_inputManager);
        m_outputViews << outputView;
        setContentSize(QSizeF(frame.right() + kMargin, frame.bottom() + kMargin));
        x = frame.right() + kMargin;
    }

    m_inputManager->registerChangeObserver(this, &kContentSizeObservationContext);
    resizeScrollViewSoon();
}

void VUTesterLayoutsPlaygroundViewController::resizeScrollViewSoon()
{
    // One hop on the main queue: the output views have had their layout pass by then.
    dispatch::Queue::main()->async([self = QPointer<VUTesterLayoutsPlaygroundViewController>(this)] {
        if (self && self->m_scrollView)
            self->_resizeScrollView(self->m_scrollView);
    });
}

void VUTesterLayoutsPlaygroundViewController::didChange(VXObservable *, quint64 change, void *context)
{
    if (context != &kContentSizeObservationContext)
        qFatal("VUTesterLayoutsPlaygroundViewController: change observed with an unknown context %p", context);
    // Items that grow (a square turned into a vertical pano) may reach past the strip's end; the
    // strip follows, so everything drawn stays reachable by scrolling.
    if (change & VUTesterLayoutInputManager::LayoutInputChange)
        resizeScrollViewSoon();
}

void VUTesterLayoutsPlaygroundViewController::setContentSize(QSizeF size)
{
    const double scale = m_scrollView->zoomScale();
    m_contentView->resize(int(std::ceil(size.width() * scale)), int(std::ceil(size.height() * scale)));
    m_scrollView->setContentSize(size * scale);
}

void VUTesterLayoutsPlaygroundViewController::_resizeScrollView(ui::ScrollView *scrollView)
{
    QRectF united;
    for (VUTesterLayoutGeneratorOutputView *outputView : std::as_const(m_outputViews)) {
        outputView->layoutIfNeeded();
        united = united.united(outputView->contentBounds().translated(outputView->frame().topLeft()));
    }
    // Unscaled here; setContentSize converts to the scroll view's zoomed coordinates.
    Q_ASSERT(scrollView == m_scrollView);
    setContentSize(QSizeF(std::max(0.0, united.right()), std::max(0.0, united.bottom())));
}

void VUTesterLayoutsPlaygroundViewController::_handleTap(ui::GestureRecognizer *tap)
{
    for (VUTesterLayoutGeneratorOutputView *outputView : std::as_const(m_outputViews))
        if (outputView->handleTap(tap))
            return;
}

void VUTesterLayoutsPlaygroundViewController::_handleSegmentedControl(int selectedSegmentIndex)
{
    if (m_settings)
        m_settings->setTapBehavior(selectedSegmentIndex);
}

void VUTesterLayoutsPlaygroundViewController::_showLegend()
{
    auto *alert = new ui::AlertController(QStringLiteral("Legend"),
                                          QStringLiteral(" ▯ Portrait \n ▭ Landscape \n ━ Horizontal Pano \n ┃ Vertical Pano "));
    alert->addAction({QStringLiteral("OK"), ui::AlertAction::Style::Default, {}});
    presentViewController(alert, true);
}

QWidget *VUTesterLayoutsPlaygroundViewController::viewForZooming(ui::ScrollView *)
{
    return m_contentView;
}

void VUTesterLayoutsPlaygroundViewController::didZoom(ui::ScrollView *scrollView)
{
    for (VUTesterLayoutGeneratorOutputView *outputView : std::as_const(m_outputViews))
        outputView->setDrawingScale(scrollView->zoomScale());
}

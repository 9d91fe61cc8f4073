#include "diagnostics/VUTesterVistraKitObjectDiagnosticsTableViewCell.h"

#include "ui_VUTesterVistraKitObjectDiagnosticsTableViewCell.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLayout>
#include <QPainter>

VUTesterVistraKitObjectDiagnosticsTableViewCell::VUTesterVistraKitObjectDiagnosticsTableViewCell()
    : m_ui(std::make_unique<Ui::VUTesterVistraKitObjectDiagnosticsTableViewCell>())
    , m_dateFormatter(VUTesterVistraKitObjectDiagnosticsContent::defaultDateFormatter())
{
    m_ui->setupUi(contentView());
    _commonVUTesterVistraKitObjectDiagnosticsTableViewCellInit();
}

VUTesterVistraKitObjectDiagnosticsTableViewCell::~VUTesterVistraKitObjectDiagnosticsTableViewCell()
{
    setThumbnailImageRequestID(VHInvalidImageRequestID);
}

void VUTesterVistraKitObjectDiagnosticsTableViewCell::_commonVUTesterVistraKitObjectDiagnosticsTableViewCellInit()
{
    m_imageManager = VHImageManager::defaultManager();
}

QString VUTesterVistraKitObjectDiagnosticsTableViewCell::identifier()
{
    return QStringLiteral("VUTesterVistraKitObjectDiagnosticsTableViewCell");
}

ui::CollectionView::CellFactory VUTesterVistraKitObjectDiagnosticsTableViewCell::nib()
{
    return [] { return new VUTesterVistraKitObjectDiagnosticsTableViewCell; };
}

QLabel *VUTesterVistraKitObjectDiagnosticsTableViewCell::titleLabel() const
{
    return m_ui->titleLabel;
}

QLabel *VUTesterVistraKitObjectDiagnosticsTableViewCell::subtitleLabel() const
{
    return m_ui->subtitleLabel;
}

QLabel *VUTesterVistraKitObjectDiagnosticsTableViewCell::propertiesLabel() const
{
    return m_ui->propertiesLabel;
}

VUAspectFitImageView *VUTesterVistraKitObjectDiagnosticsTableViewCell::thumbnailImageView() const
{
    return m_ui->thumbnailImageView;
}

void VUTesterVistraKitObjectDiagnosticsTableViewCell::setObject(const VUTesterDiagnosticsObject &object)
{
    if (object == m_object)
        return;
    m_object = object;
    setNeedsLayout();
}

void VUTesterVistraKitObjectDiagnosticsTableViewCell::setThumbnailImageRequestID(VHImageRequestID requestID)
{
    if (requestID == m_thumbnailImageRequestID)
        return;
    if (m_thumbnailImageRequestID != VHInvalidImageRequestID)
        m_imageManager->cancelImageRequest(m_thumbnailImageRequestID);
    m_thumbnailImageRequestID = requestID;
}

void VUTesterVistraKitObjectDiagnosticsTableViewCell::prepareForReuse()
{
    setObject(std::monostate());
    m_index = VUTesterVistraKitObjectDiagnosticsContent::kNotFound;
    m_count = 0;
    setThumbnailImageRequestID(VHInvalidImageRequestID);
}

void VUTesterVistraKitObjectDiagnosticsTableViewCell::setNeedsLayout()
{
    if (m_needsLayout)
        return;
    m_needsLayout = true;
    QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest));
}

bool VUTesterVistraKitObjectDiagnosticsTableViewCell::event(QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest)
        layoutIfNeeded();
    return ui::CollectionViewCell::event(event);
}

void VUTesterVistraKitObjectDiagnosticsTableViewCell::paintEvent(QPaintEvent *event)
{
    ui::CollectionViewCell::paintEvent(event);
    QPainter painter(this);
    const int inset = m_ui->row->contentsMargins().left();
    painter.fillRect(QRect(inset, height() - 1, width() - inset, 1), palette().color(QPalette::Midlight));
}

void VUTesterVistraKitObjectDiagnosticsTableViewCell::layoutIfNeeded()
{
    if (!m_needsLayout)
        return;
    m_needsLayout = false;
    layoutSubviews();
}

void VUTesterVistraKitObjectDiagnosticsTableViewCell::showTexts(const VUTesterVistraKitObjectDiagnosticsContent &content)
{
    m_ui->titleLabel->setText(content.title);
    m_ui->subtitleLabel->setText(content.subtitle);
    m_ui->propertiesLabel->setText(content.propertyLines.join(QLatin1Char('\n')));
    // Empty labels take no room, so an asset's row is not padded by its missing title.
    m_ui->titleLabel->setVisible(!content.title.isEmpty());
    m_ui->subtitleLabel->setVisible(!content.subtitle.isEmpty());
}

void VUTesterVistraKitObjectDiagnosticsTableViewCell::layoutSubviews()
{
    const auto content = VUTesterVistraKitObjectDiagnosticsContent::contentForObject(m_object, m_index, m_count, m_dateFormatter);
    showTexts(content);
    VUAspectFitImageView *imageView = m_ui->thumbnailImageView;
    imageView->setImage(nullptr);
    if (!content.thumbnailAsset.isValid()) {
        setThumbnailImageRequestID(VHInvalidImageRequestID);
        return;
    }
    const QSize pixels = (QSizeF(imageView->size()) * imageView->devicePixelRatioF()).toSize();
    ui::PendingWork pending(QStringLiteral("thumbnail of %1").arg(content.thumbnailAsset.localIdentifier()));
    // The manager never answers a cancelled request, so an answer is always for this object.
    const VHImageRequestID requestID = m_imageManager->requestImageForAsset(
        content.thumbnailAsset, pixels, VHImageContentMode::AspectFill,
        [imageView = QPointer<VUAspectFitImageView>(imageView), pending](const graphics::ImagePtr &image, const QVariantMap &) mutable {
            if (imageView && image)
                imageView->setImage(image);
            pending.end();
        });
    setThumbnailImageRequestID(requestID);
}

int VUTesterVistraKitObjectDiagnosticsTableViewCell::heightForContent(const VUTesterVistraKitObjectDiagnosticsContent &content)
{
    showTexts(content);
    return contentView()->layout()->totalSizeHint().height();
}

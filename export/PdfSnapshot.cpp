#include "page/BasicChart.h"
#include "page/Clock.h"
#include "page/Codes.h"
#include "page/ServiceTypes.h"
#include "page/Texts.h"

#include "TempResultExportWidget.h"

#include <TalvixWidgets/ZrMessageBoxFlowDownWidget.h>

#include <QtCore/QEventLoop>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QPointer>
#include <QtGui/QGuiApplication>
#include <QtGui/QPageSize>
#include <QtGui/QPainter>
#include <QtGui/QPdfWriter>
#include <QtGui/QPixmap>
#include <QtWidgets/QFileDialog>

#include <utility>

namespace {

constexpr QPoint pictureOffset(10, 1000);

// The painter starts before the page size is set: the scale comes from the writer's default page, and the
// offsets are made for it.
void writeSnapshot(const QString &fileName, QWidget &page)
{
    QFile file(fileName);
    static_cast<void>(file.open(QIODevice::WriteOnly));
    {
        QPdfWriter writer(&file);
        QPainter painter(&writer);
        writer.setPageSize(QPageSize(QPageSize::A2));
        const QPixmap picture = page.grab(page.rect());
        const float viewportWidth = static_cast<float>(painter.viewport().width());
        const double scale = static_cast<double>(viewportWidth / static_cast<float>(picture.width()));
        painter.scale(scale, scale);
        painter.drawPixmap(pictureOffset, picture);
        painter.scale(1.0, 1.0);
        painter.end();
    }
    file.close();
}

} // namespace

void BasicChart::on_pushButtonExport_clicked()
{
    if (!serviceType().has(ServiceTypeRow::ExportModeAsked)) {
        exportPdf();
        return;
    }
    if (!m_pExportWidget)
        m_pExportWidget = new TempResultExportWidget(this);
    QObject::disconnect(m_pExportWidget, nullptr, nullptr, nullptr);

    QEventLoop answer;
    connect(m_pExportWidget, &TempResultExportWidget::signalConfirm, &answer, &QEventLoop::exit);
    // A page that goes away while its dialog is open takes the dialog along; nobody would answer then.
    connect(m_pExportWidget, &QObject::destroyed, &answer, [&answer] { answer.exit(Codes::Dismissed); });
    const QPointer<BasicChart> page(this);
    m_pExportWidget->showZrDialog();
    // An application that is quitting answers -1.
    if (answer.exec(QEventLoop::DialogExec) <= Codes::Dismissed || !page)
        return;

    QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    if (m_pExportWidget->getExportMode() == Codes::Pdf)
        exportPdf();
    QGuiApplication::restoreOverrideCursor();
}

void BasicChart::exportPdf()
{
    const QPointer<BasicChart> page(this);
    if (createPdf() && page) {
        ZrMessageBoxFlowDownWidget::showMessage(
            Texts::sentence("TK_ExportSuccess"), this, ZrMessageBoxFlowDownWidget::Success, 0);
    }
}

// The dialog is a variable of Qt's and a child of the page at once. A page that ends while its user is still
// choosing must not delete it.
void BasicChart::releaseFileDialog()
{
    if (!m_isChoosingFile)
        return;
    const auto dialogs = findChildren<QFileDialog *>(Qt::FindDirectChildrenOnly);
    for (QFileDialog *dialog : dialogs) {
        dialog->setParent(nullptr);
        dialog->reject();
    }
}

bool BasicChart::createPdf()
{
    const QString proposedName = QStringLiteral("StatisticCharts_%1")
                                     .arg(Clock::now().toString(QStringLiteral("yyyy-MM-dd hh-mm-ss")));
    const QPointer<BasicChart> page(this);
    // Somebody may be choosing already; that dialog outlives this one.
    const bool wasChoosing = std::exchange(m_isChoosingFile, true);
    QString fileName = QFileDialog::getSaveFileName(
        this, Texts::sentence("TK_SaveImportResult"), proposedName, QStringLiteral("*.pdf"), nullptr, {});
    if (!page)
        return false;
    m_isChoosingFile = wasChoosing;
    if (fileName.isEmpty())
        return false;
    if (QFile::exists(fileName))
        QFile::remove(fileName);
    if (QFileInfo(fileName).suffix().isEmpty())
        fileName.append(QStringLiteral(".pdf"));
    writeSnapshot(fileName, *this);
    return true;
}

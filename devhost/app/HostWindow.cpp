#include "HostWindow.h"

#include "Kinds.h"
#include "Stage.h"

#include "devhost/data/SqlStatisticsManager.h"
#include "devhost/widgets/HostSettings.h"
#include "devhost/widgets/Toast.h"
#include "plugin/preview/StatisticsPreview.h"

#include <TalvixWidgets/AppLanguageTr.h>
#include <TalvixWidgets/BaseHelper.h>
#include <TalvixWidgets/BaseWidget.h>
#include <TalvixWidgets/ZrPushButton.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDateTime>
#include <QtCore/QFile>
#include <QtCore/QSettings>
#include <QtCore/QSignalBlocker>
#include <QtGui/QAction>
#include <QtGui/QBackingStore>
#include <QtGui/QIcon>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QStyle>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QVBoxLayout>

namespace {

constexpr int sideWidth = 208;
/// Here nothing of a page is cut, in any language: the box of pie modes needs the most.
constexpr QSize wholePage(1592, 912);
constexpr QSize smallestSize(1024, 700);
/// What a window manager puts around a window, about.
constexpr QSize windowFrame(0, 36);
constexpr int narrowestWithSide = wholePage.width() + sideWidth;
constexpr int barHeight = 48;
constexpr int longestLatency = 60'000;
constexpr QSize usualSize(narrowestWithSide, wholePage.height() + barHeight);
constexpr int entryMargin = 16;
constexpr int entryPadding = 14;
constexpr int serviceRole = Qt::UserRole;
constexpr int textKeyRole = Qt::UserRole + 1;
constexpr int tabsEntry = 1;

constexpr QLatin1String geometrySetting("window/geometry");
constexpr QLatin1String languageSetting("language");
constexpr QLatin1String dateOrderSetting("dayFirst");

QString text(const QString &key)
{
    return AppLanguageTr::instance()->translate(key, AppLanguageTr::Sentence, -1);
}

QString text(const char *key)
{
    return text(QString::fromLatin1(key));
}

int widestMenu(int windowWidth)
{
    return windowWidth < smallestSize.width() ? 110 : windowWidth < 1200 ? 160 : 230;
}

/// Three lines, the sign of a list that can be opened.
QIcon menuIcon()
{
    constexpr int size = 16;
    QIcon icon;
    for (const int scale : {1, 2}) {
        QPixmap picture(QSize(size, size) * scale);
        picture.setDevicePixelRatio(scale);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        for (const double y : {4.0, 8.0, 12.0})
            painter.fillRect(QRectF(2.0, y - 0.75, 12.0, 1.5), QColor(0xD6, 0xD6, 0xD6));
        painter.end();
        icon.addPixmap(picture);
    }
    return icon;
}

/// Every language by the name that its speakers look for.
QString nameOfLanguage(const QString &code)
{
    static const QHash<QString, QString> names = {
        {QStringLiteral("en"), QStringLiteral("English")},
        {QStringLiteral("zh_CN"), QStringLiteral("简体中文")},
        {QStringLiteral("de"), QStringLiteral("Deutsch")},
        {QStringLiteral("x-long"), QStringLiteral("Pseudo")},
        {QStringLiteral("x-rtl"), QStringLiteral("Mirrored")},
    };
    return names.value(code, code);
}

/// How pages write a moment: by hours, by days and by months.
QStringList spanFormats()
{
    QStringList formats;
    for (const char *format : {"yyyy-MM-dd hh", "yyyy-MM-dd", "yyyy-MM"})
        formats.append(BaseHelper::getInstance()->dateTimeFormatConversion(QString::fromLatin1(format)));
    return formats;
}

/// The two ends of a span, which stand in one of the formats \a before, in the same one of \a now.
QString rewritten(const QString &span, const QStringList &before, const QStringList &now)
{
    QStringList ends = span.split(u'~');
    for (QString &end : ends) {
        for (int i = 0; i < before.size(); ++i) {
            const QDateTime moment = QDateTime::fromString(end, before.at(i));
            if (moment.isValid()) {
                end = moment.toString(now.at(i));
                break;
            }
        }
    }
    return ends.join(u'~');
}

} // namespace

HostWindow::HostWindow(SqlStatisticsManager &service, QSettings &settings, QWidget *parent)
    : QMainWindow(parent)
    , m_service(service)
    , m_settings(settings)
{
    setObjectName(QStringLiteral("hostWindow"));
    setMinimumSize(smallestSize.boundedTo(screen()->availableSize() - windowFrame));
    QFile sheet(QStringLiteral(":/talvix/devhost/window.qss"));
    if (sheet.open(QIODevice::ReadOnly))
        setStyleSheet(QString::fromUtf8(sheet.readAll()));

    auto *centre = new QWidget(this);
    m_columns = new QHBoxLayout(centre);
    m_columns->setContentsMargins(0, 0, 0, 0);
    m_columns->setSpacing(0);
    setCentralWidget(centre);
    m_bar = makeBar();
    m_side = makeSide();
    m_columns->addWidget(m_side);
    auto *rows = new QVBoxLayout;
    rows->setSpacing(0);
    rows->addWidget(m_bar);
    rows->addWidget(makeStage(), 1);
    m_columns->addLayout(rows, 1);

    auto *quit = new QAction(this);
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    connect(quit, &QAction::triggered, this, &QWidget::close);
    addAction(quit);

    m_service.whenAsked([this] { uncover(); });
    m_service.whenAnswered([this] { Toast::dropOutdated(this); });
    retranslate();
    restore();
}

HostWindow::~HostWindow()
{
    m_service.whenAsked({});
    m_service.whenAnswered({});
    if (m_tabsNumber > 0)
        m_plugin.uninit(m_tabsNumber);
}

QWidget *HostWindow::makeSide()
{
    auto *side = new QWidget(centralWidget());
    side->setObjectName(QStringLiteral("hostSide"));
    side->setAttribute(Qt::WA_StyledBackground);
    side->setFixedWidth(sideWidth);

    m_title = new QLabel(side);
    m_title->setObjectName(QStringLiteral("hostTitle"));
    m_subtitle = new QLabel(side);
    m_subtitle->setObjectName(QStringLiteral("hostSubtitle"));
    m_list = new QListWidget(side);
    m_list->setObjectName(QStringLiteral("hostKinds"));
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setWordWrap(true);
    m_source = new QLabel(side);
    m_source->setObjectName(QStringLiteral("hostSource"));
    m_source->setWordWrap(true);

    addHeading("DH_InTabs");
    addEntry(QStringLiteral("DH_AlarmsAndOnline"), tabsEntry);
    addHeading("DH_SinglePages");
    for (const Kind &kind : allKinds()) {
        if (kind.service > lastKindInTabs)
            addEntry(kind.textKey, kind.service);
    }
    m_list->setCurrentRow(1);
    connect(m_list, &QListWidget::currentRowChanged, this, &HostWindow::showChosenPage);
    connect(m_list, &QListWidget::itemClicked, this, [this] { openDrawer(false); });
    connect(m_list, &QListWidget::itemActivated, this, [this] { openDrawer(false); });

    auto *column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_title);
    column->addWidget(m_subtitle);
    column->addWidget(m_list, 1);
    column->addWidget(m_source);
    return side;
}

void HostWindow::addHeading(const char *key)
{
    auto *item = new QListWidgetItem(m_list);
    item->setFlags(Qt::NoItemFlags);
    item->setData(textKeyRole, QString::fromLatin1(key));
}

void HostWindow::addEntry(const QString &key, int service)
{
    auto *item = new QListWidgetItem(m_list);
    item->setData(textKeyRole, key);
    item->setData(serviceRole, service);
}

QWidget *HostWindow::makeBar()
{
    auto *bar = new QWidget(centralWidget());
    bar->setObjectName(QStringLiteral("hostBar"));
    bar->setAttribute(Qt::WA_StyledBackground);
    bar->setFixedHeight(barHeight);

    m_menu = new ZrPushButton(bar);
    m_menu->setObjectName(QStringLiteral("hostMenu"));
    m_menu->setIcon(menuIcon());
    m_menu->hide();
    connect(m_menu, &QPushButton::clicked, this, [this] { openDrawer(!m_side->isVisible()); });

    m_language = new QComboBox(bar);
    m_language->setObjectName(QStringLiteral("hostLanguage"));
    for (const QString &code : HostSettings::languages())
        m_language->addItem(nameOfLanguage(code), code);
    connect(m_language, &QComboBox::activated, this, &HostWindow::chooseLanguage);

    m_dateOrder = new QComboBox(bar);
    m_dateOrder->setObjectName(QStringLiteral("hostDateOrder"));
    m_dateOrder->addItem(QStringLiteral("2024-12-31"), int(HostSettings::DateOrder::YearFirst));
    m_dateOrder->addItem(QStringLiteral("31/12/2024"), int(HostSettings::DateOrder::DayFirst));
    connect(m_dateOrder, &QComboBox::activated, this, &HostWindow::chooseDateOrder);

    m_latencyLabel = new QLabel(bar);
    m_latency = new QSpinBox(bar);
    m_latency->setObjectName(QStringLiteral("hostLatency"));
    m_latency->setRange(0, longestLatency);
    m_latency->setSingleStep(250);
    m_latency->setSuffix(QStringLiteral(" ms"));
    m_latency->setValue(m_service.latency());
    m_latencyLabel->setBuddy(m_latency);
    connect(m_latency, &QSpinBox::valueChanged, this, [this](int value) { m_service.setLatency(value); });

    m_failureLabel = new QLabel(bar);
    m_failureRate = new QSpinBox(bar);
    m_failureRate->setObjectName(QStringLiteral("hostFailureRate"));
    m_failureRate->setRange(0, 100);
    m_failureRate->setSingleStep(10);
    m_failureRate->setSuffix(QStringLiteral(" %"));
    m_failureRate->setValue(m_service.failureRate());
    m_failureLabel->setBuddy(m_failureRate);
    connect(
        m_failureRate, &QSpinBox::valueChanged, this, [this](int value) { m_service.setFailureRate(value); });

    m_failNext = new ZrPushButton(bar);
    m_failNext->setObjectName(QStringLiteral("hostFailNext"));
    connect(m_failNext, &QPushButton::clicked, this, [this] { m_service.failNext(); });

    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(12, 0, 12, 0);
    row->setSpacing(8);
    row->addWidget(m_menu);
    row->addWidget(m_language);
    row->addWidget(m_dateOrder);
    row->addStretch(1);
    row->addWidget(m_latencyLabel);
    row->addWidget(m_latency);
    row->addSpacing(8);
    row->addWidget(m_failureLabel);
    row->addWidget(m_failureRate);
    row->addSpacing(8);
    row->addWidget(m_failNext);
    return bar;
}

// A page that has less room than it needs is scrolled, as its own controls would lie upon each other.
QWidget *HostWindow::makeStage()
{
    auto *area = new QScrollArea(centralWidget());
    area->setObjectName(QStringLiteral("hostArea"));
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    m_stage = new Stage(area);
    m_stage->setObjectName(QStringLiteral("hostStage"));
    area->setWidget(m_stage);
    return area;
}

void HostWindow::arrangeSide()
{
    const bool docked = width() >= narrowestWithSide;
    if (docked != m_docked) {
        m_docked = docked;
        m_menu->setVisible(!docked);
        if (docked)
            m_columns->insertWidget(0, m_side);
        else
            m_columns->removeWidget(m_side);
        m_side->setVisible(docked);
    }
    if (!docked) {
        const QRect drawer(0, barHeight, sideWidth, centralWidget()->height() - barHeight);
        m_side->setGeometry(QStyle::visualRect(layoutDirection(), centralWidget()->rect(), drawer));
        m_side->raise();
    }
    nameMenu();
}

void HostWindow::openDrawer(bool open)
{
    if (m_docked || open == m_side->isVisible())
        return;
    m_side->setVisible(open);
    if (open) {
        m_side->raise();
        m_list->setFocus();
        qApp->installEventFilter(this);
    } else {
        qApp->removeEventFilter(this);
        m_menu->setFocus();
    }
}

void HostWindow::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    arrangeSide();
}

void HostWindow::restore()
{
    resize(usualSize.boundedTo(screen()->availableSize() - windowFrame));
    restoreGeometry(m_settings.value(geometrySetting).toByteArray());
    m_language->setCurrentIndex(m_language->findData(HostSettings::language()));
    m_dateOrder->setCurrentIndex(m_dateOrder->findData(int(HostSettings::dateOrder())));
}

void HostWindow::setSource(const QString &database, const QDateTime &moment, MomentOf chosenBy)
{
    m_database = database;
    m_moment = moment;
    m_momentOf = chosenBy;
    retranslate();
}

QString HostWindow::textOfMoment() const
{
    const QString moment = m_moment.toString(QStringLiteral("yyyy-MM-dd HH:mm"));
    return m_momentOf == MomentOf::Samples ? text("DH_MomentOfSamples").arg(moment, QStringLiteral("--now"))
                                           : text("DH_Moment").arg(moment);
}

void HostWindow::retranslate()
{
    // The list with the source is hidden in a narrow window, the title never is.
    setWindowTitle(
        m_moment.isValid() ? text("DH_Title") + QStringLiteral(" · ") + textOfMoment() : text("DH_Title"));
    m_title->setText(text("DH_Statistics"));
    m_subtitle->setText(text("DH_Subtitle"));
    for (int row = 0; row < m_list->count(); ++row) {
        QListWidgetItem *item = m_list->item(row);
        item->setText(text(item->data(textKeyRole).toString()));
        item->setToolTip(item->text());
        const QRect room(0, 0, sideWidth - 2 * entryMargin, 1000);
        const int height = m_list->fontMetrics().boundingRect(room, Qt::TextWordWrap, item->text()).height();
        item->setSizeHint(QSize(0, height + (item->data(serviceRole).isNull() ? 2 : 1) * entryPadding));
    }
    nameMenu();
    m_list->setAccessibleName(text("DH_Statistics"));
    m_source->setText(m_moment.isValid() ? m_database + u'\n' + textOfMoment() : m_database);
    m_source->setToolTip(m_source->text());
    m_language->setAccessibleName(text("DH_Language"));
    m_language->setToolTip(text("DH_Language"));
    m_dateOrder->setAccessibleName(text("DH_DateOrder"));
    m_dateOrder->setToolTip(text("DH_DateOrder"));
    m_latencyLabel->setText(text("DH_Latency"));
    m_latency->setAccessibleName(text("DH_Latency"));
    m_latency->setToolTip(text("DH_LatencyTip"));
    m_failureLabel->setText(text("DH_Failures"));
    m_failureRate->setAccessibleName(text("DH_Failures"));
    m_failureRate->setToolTip(text("DH_FailuresTip"));
    m_failNext->setText(text("DH_FailNext"));
    m_failNext->setToolTip(text("DH_FailNextTip"));
}

void HostWindow::nameMenu()
{
    const QListWidgetItem *item = m_list->currentItem();
    const QString name = item ? item->text() : QString();
    const int widest = widestMenu(width()) - 3 * entryMargin;
    m_menu->setText(m_menu->fontMetrics().elidedText(name, Qt::ElideRight, widest));
    m_menu->setToolTip(text("DH_ChoosePage"));
    m_menu->setAccessibleName(text("DH_ChoosePage"));
    m_menu->setAccessibleDescription(name);
}

void HostWindow::openKind(int service)
{
    if (service < 1 || service > allKinds().back().service)
        return;
    int entry = service;
    if (service <= lastKindInTabs) {
        entry = tabsEntry;
        m_tabAtFirst = service - 1;
        if (QWidget *tabs = m_pages.value(tabsEntry))
            tabs->findChild<QTabWidget *>()->setCurrentIndex(m_tabAtFirst);
    }
    for (int row = 0; row < m_list->count(); ++row) {
        if (m_list->item(row)->data(serviceRole).toInt() == entry)
            m_list->setCurrentRow(row);
    }
}

int HostWindow::chosenService() const
{
    const QListWidgetItem *item = m_list->currentItem();
    return item ? item->data(serviceRole).toInt() : 0;
}

void HostWindow::showChosenPage()
{
    nameMenu();
    if (!m_exposed || chosenService() == 0)
        return;
    if (QWidget *page = pageOf(chosenService()))
        m_stage->showPage(page);
}

QWidget *HostWindow::pageOf(int service)
{
    QWidget *&page = m_pages[service];
    if (!page) {
        page = service == tabsEntry ? makeTabs() : createStatisticsPage(service, m_stage);
        if (page)
            page->hide();
    }
    return page;
}

BaseWidget *HostWindow::makeTabs()
{
    m_tabsNumber = m_plugin.init(m_stage);
    BaseWidget *widget = m_plugin.getWidget(m_tabsNumber);
    if (auto *tabs = widget ? widget->findChild<QTabWidget *>() : nullptr)
        tabs->setCurrentIndex(m_tabAtFirst);
    return widget;
}

// A choice closes its popup and asks. The picture of the popup would stay until the answer is there, as
// nothing is painted meanwhile; what lay under it is painted already and only has to reach the screen again.
void HostWindow::uncover()
{
    if (isVisible() && windowHandle()->isExposed() && backingStore())
        backingStore()->flush(rect());
}

void HostWindow::chooseLanguage()
{
    const QString code = m_language->currentData().toString();
    if (HostSettings::setLanguage(code))
        m_settings.setValue(languageSetting, code);
}

void HostWindow::chooseDateOrder()
{
    const auto order = static_cast<HostSettings::DateOrder>(m_dateOrder->currentData().toInt());
    const QStringList before = spanFormats();
    HostSettings::setDateOrder(order);
    m_settings.setValue(dateOrderSetting, order == HostSettings::DateOrder::DayFirst);
    // Pages read their span back from its text, so the text changes together with the order.
    const QList<QLineEdit *> spans = m_stage->findChildren<QLineEdit *>(QStringLiteral("lineEditTime"));
    for (QLineEdit *span : spans) {
        const QSignalBlocker quiet(span);
        span->setText(rewritten(span->text(), before, spanFormats()));
    }
    // Titles bear dates, and pages renew them with the language.
    QEvent changed(QEvent::LanguageChange);
    QCoreApplication::sendEvent(this, &changed);
}

void HostWindow::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    windowHandle()->installEventFilter(this);
}

bool HostWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == windowHandle() && event->type() == QEvent::Expose && windowHandle()->isExposed()
        && !m_exposed) {
        m_exposed = true;
        // So that no control of the frame looks chosen at first; Tab goes on into the page.
        m_stage->setFocus();
        QMetaObject::invokeMethod(this, &HostWindow::showChosenPage, Qt::QueuedConnection);
    }
    if (!m_docked && m_side->isVisible() && leavesDrawer(watched, event)) {
        openDrawer(false);
        return event->type() == QEvent::KeyPress;
    }
    return QMainWindow::eventFilter(watched, event);
}

bool HostWindow::leavesDrawer(QObject *watched, QEvent *event) const
{
    if (event->type() == QEvent::KeyPress)
        return static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape;
    if (event->type() != QEvent::MouseButtonPress)
        return false;
    const auto *pressed = qobject_cast<const QWidget *>(watched);
    return pressed && pressed != m_menu && !m_side->isAncestorOf(pressed) && pressed != m_side;
}

void HostWindow::closeEvent(QCloseEvent *event)
{
    m_settings.setValue(geometrySetting, saveGeometry());
    QMainWindow::closeEvent(event);
    // A dialog of a page may still be open, and the process must not wait for it.
    QCoreApplication::quit();
}

void HostWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    else if (event->type() == QEvent::LayoutDirectionChange)
        arrangeSide();
}

#include "support/TestMain.h"

#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>

namespace {

/// Class of a demangled symbol, also of its tables and thunks; the symbol itself when it is of no class.
QString owner(QString symbol)
{
    static const QStringList prefixes = {QStringLiteral("vtable for "), QStringLiteral("typeinfo for "),
        QStringLiteral("typeinfo name for "), QStringLiteral("non-virtual thunk to "),
        QStringLiteral("virtual thunk to ")};
    for (const QString &prefix : prefixes) {
        if (symbol.startsWith(prefix))
            symbol.remove(0, prefix.size());
    }
    const qsizetype scope = symbol.indexOf(QStringLiteral("::"));
    return scope < 0 ? symbol : symbol.left(scope);
}

} // namespace

class TestExports : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void onlyTheTwoClassesAreVisible();
    void operationsOfBothClassesAreVisible_data();
    void operationsOfBothClassesAreVisible();

private:
    QStringList m_symbols;
};

void TestExports::initTestCase()
{
    const QString nm = QStandardPaths::findExecutable(QStringLiteral("nm"));
    QVERIFY2(!nm.isEmpty(), "nm is part of the compiler's tools");
    QProcess process;
    process.start(nm,
        {QStringLiteral("-D"), QStringLiteral("--defined-only"), QStringLiteral("-C"),
            QStringLiteral(TALVIX_PRODUCT_LIBRARY)});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
    const QStringList lines =
        QString::fromLocal8Bit(process.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines)
        m_symbols.append(line.section(QLatin1Char(' '), 2));
    QVERIFY(!m_symbols.isEmpty());
}

void TestExports::onlyTheTwoClassesAreVisible()
{
    QStringList strangers;
    for (const QString &symbol : std::as_const(m_symbols)) {
        const QString ownerName = owner(symbol);
        if (ownerName != QStringLiteral("DataStaticsPlugin")
            && ownerName != QStringLiteral("DataStaticsWidget"))
            strangers.append(symbol);
    }
    QCOMPARE(strangers, QStringList());
}

void TestExports::operationsOfBothClassesAreVisible_data()
{
    QTest::addColumn<QString>("symbol");
    const char *const symbols[] = {
        "DataStaticsPlugin::DataStaticsPlugin(QObject*)",
        "DataStaticsPlugin::~DataStaticsPlugin()",
        "DataStaticsPlugin::init(QWidget*)",
        "DataStaticsPlugin::getWidget(int const&)",
        "DataStaticsPlugin::uninit(int const&)",
        "DataStaticsPlugin::m_nWndId",
        "DataStaticsPlugin::staticMetaObject",
        "vtable for DataStaticsPlugin",
        "typeinfo for DataStaticsPlugin",
        "DataStaticsWidget::DataStaticsWidget(QWidget*)",
        "DataStaticsWidget::~DataStaticsWidget()",
        "DataStaticsWidget::initForm()",
        "DataStaticsWidget::retranslateUi()",
        "DataStaticsWidget::setDataStaticType(DataStaticsWidget::DataStaticType)",
        "DataStaticsWidget::initCustomStyle()",
        "DataStaticsWidget::staticMetaObject",
        "vtable for DataStaticsWidget",
        "typeinfo for DataStaticsWidget",
    };
    for (const char *symbol : symbols)
        QTest::newRow(symbol) << QString::fromLatin1(symbol);
}

void TestExports::operationsOfBothClassesAreVisible()
{
    QFETCH(QString, symbol);
    QVERIFY(m_symbols.contains(symbol));
}

TALVIX_TEST_MAIN(TestExports)
#include "tst_exports.moc"

#include "LanguageTexts.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QLibraryInfo>
#include <QtCore/QRegularExpression>
#include <QtCore/QTranslator>

#include <memory>
#include <vector>

namespace {

constexpr const char *context = "Talvix";

/// English made longer and stranger, so that clipped and untranslated texts catch the eye.
QString lengthened(const QString &text)
{
    static const QString plain = QStringLiteral("aceidnorsuyACEINORSUYZz");
    static const QString strange = QStringLiteral("àçéîďñöŕšûýÀÇÉÎÑÖŔŠÛÝŽž");
    static const QStringList fillers =
        QStringLiteral("one two three four five six seven eight nine ten").split(u' ');

    if (text.trimmed().isEmpty())
        return text;
    qsizetype first = 0;
    while (text.at(first).isSpace())
        ++first;
    qsizetype end = text.size();
    while (text.at(end - 1).isSpace())
        --end;

    QString result = text.left(first) + u'[';
    bool inTag = false;
    for (qsizetype i = first; i < end; ++i) {
        const QChar c = text.at(i);
        if (c == u'<')
            inTag = true;
        const bool placeholder = i > first && text.at(i - 1) == u'%';
        const qsizetype known = inTag || placeholder ? -1 : plain.indexOf(c);
        result += known < 0 ? c : strange.at(known);
        if (c == u'>')
            inTag = false;
    }
    const qsizetype goal = result.size() + (end - first) / 2;
    for (qsizetype i = 0; i == 0 || result.size() < goal; ++i)
        result += u' ' + fillers.at(i % fillers.size());
    return result + u']' + text.mid(end);
}

/// English written from right to left, between the blanks around it. What takes the place of a placeholder
/// keeps its own direction.
QString mirrored(const QString &text)
{
    constexpr QChar rightToLeftMark(0x200F);
    constexpr QChar rightToLeftOverride(0x202E);
    constexpr QChar endOfOverride(0x202C);

    static const QRegularExpression placeholder(QStringLiteral("(%[0-9n])"));

    QString inner = text.trimmed();
    if (inner.isEmpty())
        return text;
    const qsizetype first = text.indexOf(inner);
    const qsizetype end = first + inner.size();
    inner.replace(placeholder, endOfOverride + QStringLiteral("\\1") + rightToLeftOverride);
    return text.left(first) + rightToLeftMark + rightToLeftOverride + inner + endOfOverride + text.mid(end);
}

/// A language that nobody speaks, for trying layouts: English, each text of which is changed.
struct PseudoLanguage
{
    QString code;
    QString (*change)(const QString &);
    bool rightToLeft;
};

const std::vector<PseudoLanguage> &pseudoLanguages()
{
    static const std::vector<PseudoLanguage> all = {
        {QStringLiteral("x-long"), &lengthened, false}, {QStringLiteral("x-rtl"), &mirrored, true}};
    return all;
}

const PseudoLanguage *findPseudoLanguage(const QString &code)
{
    for (const PseudoLanguage &language : pseudoLanguages()) {
        if (language.code == code)
            return &language;
    }
    return nullptr;
}

class PseudoTranslator : public QTranslator
{
public:
    PseudoTranslator(const PseudoLanguage &language, std::unique_ptr<QTranslator> english)
        : m_language(language)
        , m_english(std::move(english))
    { }

    bool isEmpty() const override { return m_english->isEmpty(); }

    QString translate(
        const char *textContext, const char *source, const char *remark, int number) const override
    {
        // By this text Qt knows the direction of a language's layouts.
        if (m_language.rightToLeft && qstrcmp(source, "QT_LAYOUT_DIRECTION") == 0)
            return QStringLiteral("RTL");
        const QString text = m_english->translate(textContext, source, remark, number);
        return text.isEmpty() ? text : m_language.change(text);
    }

private:
    const PseudoLanguage &m_language;
    std::unique_ptr<QTranslator> m_english;
};

struct Language
{
    QString code;
    std::vector<std::unique_ptr<QTranslator>> own;
    std::vector<std::unique_ptr<QTranslator>> installed;
};

Language &current()
{
    static Language language;
    return language;
}

} // namespace

QString LanguageTexts::find(const QString &key, int number)
{
    const Language &language = current();
    // A source text ends at its first zero byte, so a longer key would be taken for a shorter one.
    if (language.own.empty() || key.isEmpty() || key.contains(QChar::Null))
        return key;
    const QByteArray source = key.toUtf8();
    for (const auto &translator : language.own) {
        QString text = translator->translate(context, source.constData(), nullptr, number);
        if (text.isEmpty())
            continue;
        if (number >= 0)
            text.replace(QStringLiteral("%n"), QString::number(number));
        return text;
    }
    return key;
}

QStringList LanguageTexts::languages()
{
    QStringList codes = {QStringLiteral("en"), QStringLiteral("zh_CN"), QStringLiteral("de")};
    for (const PseudoLanguage &language : pseudoLanguages())
        codes.append(language.code);
    return codes;
}

QString LanguageTexts::language()
{
    return current().code;
}

bool LanguageTexts::load(const QString &code)
{
    if (code == current().code)
        return true;
    if (!code.isEmpty() && !languages().contains(code))
        return false;

    Language next;
    next.code = code;
    if (!code.isEmpty()) {
        const PseudoLanguage *pseudo = findPseudoLanguage(code);
        const QString file = pseudo ? QStringLiteral("en") : code;
        const QDir folder(QStringLiteral(":/talvix/texts"));
        const QStringList names =
            folder.entryList({QStringLiteral("*_%1.qm").arg(file)}, QDir::Files, QDir::Name);
        for (const QString &name : names) {
            auto translator = std::make_unique<QTranslator>();
            if (!translator->load(folder.filePath(name)))
                continue;
            if (pseudo)
                translator = std::make_unique<PseudoTranslator>(*pseudo, std::move(translator));
            next.own.push_back(std::move(translator));
        }
        if (next.own.empty())
            return false;
        auto qtTexts = std::make_unique<QTranslator>();
        if (qtTexts->load(
                QStringLiteral("qtbase_") + file, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
            next.installed.push_back(std::move(qtTexts));
    }

    Language previous = std::move(current());
    current() = std::move(next);
    if (!QCoreApplication::instance())
        return true;
    for (const auto &list : {&previous.own, &previous.installed}) {
        for (const auto &translator : *list)
            QCoreApplication::removeTranslator(translator.get());
    }
    for (const auto &list : {&current().installed, &current().own}) {
        for (const auto &translator : *list)
            QCoreApplication::installTranslator(translator.get());
    }
    // Widgets are told by posted events; who changes the language finds all of them changed on return.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
    return true;
}

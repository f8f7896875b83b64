#include "DateOfPdf.h"

#include <QtCore/QUuid>

namespace {

// The text takes the place of the beginning of what stands between the mark and the end.
bool replaceBetween(QByteArray &pdf, const QByteArray &mark, char end, const QByteArray &text)
{
    const qsizetype found = pdf.indexOf(mark);
    if (found < 0)
        return false;
    const qsizetype start = found + mark.size();
    if (pdf.indexOf(end, start) < start + text.size())
        return false;
    pdf.replace(start, text.size(), text);
    return true;
}

} // namespace

bool setDateOfPdf(QByteArray &pdf, const QDateTime &moment)
{
    const QByteArray date = moment.toString(QStringLiteral("yyyyMMddHHmmss")).toLatin1();
    if (!replaceBetween(pdf, QByteArrayLiteral("/CreationDate (D:"), ')', date))
        return false;
    // Qt tells more dates since 6.8: the last change, and both again in the metadata.
    replaceBetween(pdf, QByteArrayLiteral("/ModDate (D:"), ')', date);
    const QByteArray metadataDate = moment.toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss")).toLatin1();
    for (const char *name : {"xmp:CreateDate=\"", "xmp:ModifyDate=\"", "xmp:MetadataDate=\""})
        replaceBetween(pdf, name, '"', metadataDate);
    return true;
}

void clearIdOfPdf(QByteArray &pdf)
{
    static const QByteArray mark = QByteArrayLiteral("xmpMM:DocumentID=\"uuid:");
    const QByteArray none = QUuid().toByteArray(QUuid::WithoutBraces);
    const qsizetype found = pdf.indexOf(mark);
    if (found < 0)
        return;
    const QByteArray id = pdf.mid(found + mark.size(), none.size());
    if (QUuid::fromString(QLatin1String(id)).isNull())
        return;
    // It stands in the metadata as it is, and in the file's end by its letters' codes.
    pdf.replace(id, none);
    pdf.replace(id.toHex(), none.toHex());
}

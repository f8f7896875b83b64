#include "DateOfPdf.h"

bool setDateOfPdf(QByteArray &pdf, const QDateTime &moment)
{
    static const QByteArray begin = QByteArrayLiteral("/CreationDate (D:");
    const QByteArray date = moment.toString(QStringLiteral("yyyyMMddHHmmss")).toLatin1();
    const qsizetype found = pdf.indexOf(begin);
    if (found < 0)
        return false;
    const qsizetype start = found + begin.size();
    const qsizetype end = pdf.indexOf(')', start);
    if (end < start + date.size())
        return false;
    pdf.replace(start, date.size(), date);
    return true;
}

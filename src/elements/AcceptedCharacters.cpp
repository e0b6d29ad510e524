#include "elements/AcceptedCharacters.h"

#include <QRegularExpression>
#include <QStringList>

namespace {

constexpr char16_t kFirstPrintable = 0x20;
constexpr char16_t kLastPrintable = 0x7E;
// A set that admits more printable ASCII characters than this is told by what it leaves out.
constexpr int kListedAtMost = 60;

bool sameKind(QChar a, QChar b)
{
    return (a.isDigit() && b.isDigit()) || (a.isUpper() && b.isUpper()) ||
           (a.isLower() && b.isLower());
}

} // namespace

QString AcceptedCharacters::describe(const QString& pattern)
{
    static const QRegularExpression repeatedClass(
        QRegularExpression::anchoredPattern(QStringLiteral("\\[(\\^?)(.+)\\]\\*")));
    const QRegularExpressionMatch match = repeatedClass.match(pattern);
    if (!match.hasMatch())
        return QString();
    const QString named = members(match.captured(2));
    if (!match.captured(1).isEmpty())
        return named.isEmpty() ? QString() : tr("Any character except %1").arg(listed(named));
    const QString& admitted = named;
    if (admitted.size() <= kListedAtMost)
        return tr("Characters: %1").arg(listed(admitted));
    QString missing;
    for (char16_t c = kFirstPrintable; c <= kLastPrintable; ++c) {
        if (!admitted.contains(QChar(c)))
            missing.append(QChar(c));
    }
    return missing.isEmpty() ? tr("Printable ASCII characters")
                             : tr("Printable ASCII characters except %1").arg(listed(missing));
}

QString AcceptedCharacters::members(const QString& characterClass)
{
    // The expression engine reads the class, ranges and escapes included; each character is
    // asked once.
    const QRegularExpression single(
        QRegularExpression::anchoredPattern(QStringLiteral("[%1]").arg(characterClass)));
    QString admitted;
    if (!single.isValid())
        return admitted;
    for (char16_t c = kFirstPrintable; c <= kLastPrintable; ++c) {
        if (single.match(QString(QChar(c))).hasMatch())
            admitted.append(QChar(c));
    }
    for (const QChar c : characterClass) {
        if (c.unicode() > kLastPrintable && !admitted.contains(c))
            admitted.append(c);
    }
    return admitted;
}

QString AcceptedCharacters::listed(const QString& characters)
{
    QStringList parts;
    for (int i = 0; i < characters.size();) {
        int end = i + 1;
        while (end < characters.size() && sameKind(characters[i], characters[end]) &&
               characters[end].unicode() == characters[end - 1].unicode() + 1)
            ++end;
        if (end - i >= 3) {
            parts.append(QStringLiteral("%1–%2").arg(characters[i]).arg(characters[end - 1]));
        } else {
            for (int k = i; k < end; ++k)
                parts.append(characters[k] == QLatin1Char(' ') ? tr("space")
                                                               : QString(characters[k]));
        }
        i = end;
    }
    return parts.join(QLatin1Char(' '));
}

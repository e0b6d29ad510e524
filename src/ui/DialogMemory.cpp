#include "ui/DialogMemory.h"

#include <QSettings>

DialogMemory::DialogMemory(const QString& model)
{
    // A slash would open a nested group: model names are free text.
    QString group = model.isEmpty() ? QStringLiteral("unnamed") : model;
    group.replace(QLatin1Char('/'), QLatin1Char('_')).replace(QLatin1Char('\\'), QLatin1Char('_'));
    _group = QStringLiteral("models/") + group;
}

QString DialogMemory::organisation()
{
    return QStringLiteral("Tavolor");
}

QString DialogMemory::application()
{
    return QStringLiteral("tav");
}

QString DialogMemory::key(const char* name) const
{
    return _group + QLatin1Char('/') + QLatin1String(name);
}

QSize DialogMemory::size() const
{
    const QSettings settings(organisation(), application());
    return settings.value(key("size")).toSize();
}

bool DialogMemory::folded() const
{
    const QSettings settings(organisation(), application());
    return settings.value(key("folded"), false).toBool();
}

void DialogMemory::save(const QSize& size, bool folded) const
{
    QSettings settings(organisation(), application());
    settings.setValue(key("size"), size);
    settings.setValue(key("folded"), folded);
}

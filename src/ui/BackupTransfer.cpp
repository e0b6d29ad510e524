#include "ui/BackupTransfer.h"

#include "elements/FactoryElement.h"
#include "elements/InputRules.h"
#include "xml/BackupDocument.h"
#include "xml/IdentitySettings.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("BackupTransfer", text);
}

const char kFilter[] = QT_TRANSLATE_NOOP("BackupTransfer", "Tavolor backups (*.xml)");

} // namespace

void BackupTransfer::exportSettings(QWidget* parent, Element* root, const QString& model)
{
    const QString fileName =
        QFileDialog::getSaveFileName(parent, tr("Export settings"), QString(), tr(kFilter));
    if (fileName.isEmpty())
        return;
    BackupDocument backup;
    backup.takeFrom(root);
    backup.model = model;
    backup.date = QDateTime::currentDateTimeUtc();
    const QByteArray text = backup.toXml();
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(text) != text.size())
        QMessageBox::warning(parent, tr("Export settings"),
                             tr("Cannot write %1: %2").arg(fileName, file.errorString()));
}

QStringList BackupTransfer::apply(Element* root, const BackupDocument& backup)
{
    QStringList refusals;
    QList<QPair<FactoryElement*, QString>> accepted;
    for (const BackupDocument::Value& value : backup.values) {
        auto* element = qobject_cast<FactoryElement*>(root->findElement(value.first));
        if (!element || IdentitySettings::contains(value.first) ||
            element->initial() == value.second)
            continue;
        const InputRules::Verdict verdict = InputRules::check(element, value.second);
        if (verdict.accepted)
            accepted.append({element, verdict.value});
        else
            refusals.append(tr("%1: the value '%2' is refused: %3")
                                .arg(value.first, value.second, verdict.rule));
    }
    if (!refusals.isEmpty())
        return refusals;
    for (const auto& [element, value] : accepted) {
        element->valueChange(value);
        element->setControlValue(value);
    }
    return refusals;
}

void BackupTransfer::importSettings(QWidget* parent, Element* root, const QString& model)
{
    const QString fileName =
        QFileDialog::getOpenFileName(parent, tr("Import settings"), QString(), tr(kFilter));
    if (fileName.isEmpty())
        return;
    QFile file(fileName);
    BackupDocument backup;
    QString error;
    if (!file.open(QIODevice::ReadOnly) ||
        !backup.read(file.read(DomParser::kMaxDocumentBytes + 1), &error)) {
        QMessageBox::warning(parent, tr("Import settings"),
                             tr("%1 cannot be imported: %2")
                                 .arg(fileName, error.isEmpty() ? file.errorString() : error));
        return;
    }
    if (!BackupDocument::sameModel(backup.model, model) &&
        QMessageBox::question(parent, tr("Import settings"),
                              tr("The backup is of the model '%1', this printer is '%2'. Import "
                                 "it anyway?")
                                  .arg(backup.model, model)) != QMessageBox::Yes)
        return;
    const QStringList refusals = apply(root, backup);
    if (!refusals.isEmpty())
        QMessageBox::warning(parent, tr("Import settings"),
                             tr("Nothing was imported:\n%1").arg(refusals.join(QLatin1Char('\n'))));
}

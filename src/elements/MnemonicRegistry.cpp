#include "elements/MnemonicRegistry.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QVariant>

namespace {

const char* const kRegistryProperty = "tavMnemonicRegistry";

} // namespace

MnemonicRegistry::MnemonicRegistry(QWidget* window)
    : QObject(window)
{
    seed(window);
}

MnemonicRegistry* MnemonicRegistry::of(QWidget* window)
{
    // Controls come in runs for one window: remember the last one. Otherwise a property rather
    // than a child search, as panels hold hundreds of children.
    static QPointer<QWidget> lastWindow;
    static QPointer<MnemonicRegistry> lastRegistry;
    if (lastRegistry && lastWindow == window)
        return lastRegistry;
    auto* registry =
        qobject_cast<MnemonicRegistry*>(window->property(kRegistryProperty).value<QObject*>());
    if (!registry) {
        registry = new MnemonicRegistry(window);
        window->setProperty(kRegistryProperty, QVariant::fromValue<QObject*>(registry));
    }
    lastWindow = window;
    lastRegistry = registry;
    return registry;
}

void MnemonicRegistry::seed(QWidget* window)
{
    const auto take = [this](QWidget* owner, const QString& text) {
        const QChar key = mnemonicOf(text);
        if (!key.isNull())
            _owners.insert(key, owner);
    };
    for (QAbstractButton* button : window->findChildren<QAbstractButton*>())
        take(button, button->text());
    for (QGroupBox* box : window->findChildren<QGroupBox*>())
        take(box, box->title());
    for (QLabel* label : window->findChildren<QLabel*>()) {
        if (label->buddy())
            take(label, label->text());
    }
}

QString MnemonicRegistry::escaped(const QString& text)
{
    QString out = text;
    out.replace(QLatin1Char('&'), QLatin1String("&&"));
    return out;
}

QChar MnemonicRegistry::mnemonicOf(const QString& text)
{
    for (int i = 0; i + 1 < text.size(); ++i) {
        if (text.at(i) != QLatin1Char('&'))
            continue;
        if (text.at(i + 1) != QLatin1Char('&'))
            return text.at(i + 1).toLower();
        ++i;
    }
    return QChar();
}

bool MnemonicRegistry::isFree(QChar key) const
{
    const auto it = _owners.constFind(key);
    return it == _owners.constEnd() || it->isNull();
}

int MnemonicRegistry::choose(const QString& text) const
{
    // First letters of words read best; any other letter or digit of the caption will do.
    for (int pass = 0; pass < 2; ++pass) {
        for (int i = 0; i < text.size(); ++i) {
            const QChar c = text.at(i);
            if (!c.isLetterOrNumber())
                continue;
            const bool wordStart = i == 0 || !text.at(i - 1).isLetterOrNumber();
            if ((pass == 0 && !wordStart) || !isFree(c.toLower()))
                continue;
            return i;
        }
    }
    return -1;
}

QString MnemonicRegistry::mark(QWidget* scope, QWidget* owner, const QString& text)
{
    if (!scope || !owner || text.isEmpty())
        return escaped(text);
    MnemonicRegistry* registry = of(scope->window());
    const int position = registry->choose(text);
    if (position < 0)
        return escaped(text);
    registry->_owners.insert(text.at(position).toLower(), owner);
    return escaped(text.left(position)) + QLatin1Char('&') + escaped(text.mid(position));
}

#include "ui/SubgroupLinks.h"

#include "elements/Element.h"

#include <QCommandLinkButton>
#include <QPointer>
#include <QVBoxLayout>

SubgroupLinks::SubgroupLinks(const QList<Element*>& subgroups, QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("subgroupLinks"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    for (Element* subgroup : subgroups) {
        // A command link shows its texts as plain text, whatever the device wrote.
        auto* link = new QCommandLinkButton(subgroup->title(), this);
        link->setObjectName(subgroup->id());
        const QString description = subgroup->description().trimmed();
        if (description != subgroup->title())
            link->setDescription(description);
        layout->addWidget(link);
        QPointer<Element> target(subgroup);
        connect(link, &QCommandLinkButton::clicked, this, [this, target] {
            if (target)
                emit chosen(target);
        });
    }
}

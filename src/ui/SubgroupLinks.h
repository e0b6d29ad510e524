#pragma once

#include <QList>
#include <QWidget>

class Element;

// What the panel shows for a group that holds only subgroups: a link to each of them, with
// its description beneath when it says more than the title.
class SubgroupLinks : public QWidget
{
    Q_OBJECT

public:
    SubgroupLinks(const QList<Element*>& subgroups, QWidget* parent = nullptr);

signals:
    void chosen(Element* subgroup);
};

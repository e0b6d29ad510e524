#pragma once

#include <QList>
#include <QPointer>
#include <QScrollArea>
#include <QTimer>

#include <functional>

class Element;
class QVBoxLayout;

// The scrolling panel that holds the controls of one group. A group of any size opens at once:
// the first block of controls is made before the panel is shown, and the others are made a
// block at a time while the event loop runs, so the window is drawn and answers the user
// while a group of thousands of settings is still being filled in.
class SettingsPanel : public QScrollArea
{
    Q_OBJECT

public:
    explicit SettingsPanel(QWidget* parent = nullptr);
    ~SettingsPanel() override;

    // The frame the controls sit in.
    QWidget* content() const { return _content; }
    Element* group() const { return _group; }
    // True once every member of the group has its control.
    bool isComplete() const { return _next >= _waiting.size(); }

    // Shows the controls of `members` of `group`, replacing what was shown. `startsHidden`
    // tells which controls start hidden.
    void showGroup(Element* group, const QList<Element*>& members,
                   const std::function<bool(const Element*)>& startsHidden);
    // Shows links to the subgroups of a group that holds nothing else.
    void showLinks(Element* group, const QList<Element*>& subgroups);
    // Deletes every control and forgets the group.
    void clear();
    // The control of a member of the shown group, made now (with the members before it)
    // when it was still waiting for its turn. Null for an element the panel does not show.
    QWidget* controlOf(Element* element);

signals:
    // A block of controls joined the panel; they sit at the end of the window's focus chain.
    void controlsAdded(QWidget* block);
    // A link of showLinks() was followed.
    void subgroupChosen(Element* subgroup);

private:
    // Makes the controls of the next `count` waiting members in a block of their own, which
    // is shown once it is full: controls made inside a widget not yet shown queue no showing
    // of their own, and each block's layout stays small.
    void buildBlock(int count);
    void finishIfComplete();

    QWidget* _content = nullptr;
    QVBoxLayout* _layout = nullptr;
    Element* _group = nullptr;
    std::function<bool(const Element*)> _startsHidden;
    QList<QPointer<Element>> _waiting; // the members that show a control, in order
    int _next = 0;                     // the first member of _waiting without a control
    QTimer _builder;
};

#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

// Hands out keyboard mnemonics so that the captions of one window do not share a letter.
// One registry lives in each window that holds setting controls; a letter becomes free again
// when the widget that carried it is destroyed, so panels that are rebuilt reuse letters.
class MnemonicRegistry : public QObject
{
    Q_OBJECT

public:
    // The caption text for owner with "&" set before a letter that is still free in scope's
    // window (preferring the first letters of words); ampersands of the text are escaped.
    // Without a free letter the text comes back escaped but unmarked.
    static QString mark(QWidget* scope, QWidget* owner, const QString& text);

    // Text with its own ampersands doubled, so that none of them becomes a mnemonic.
    static QString escaped(const QString& text);

    // The mnemonic character of a caption ("&" followed by it), lower-cased; null when none.
    static QChar mnemonicOf(const QString& text);

private:
    explicit MnemonicRegistry(QWidget* window);

    static MnemonicRegistry* of(QWidget* window);
    // Records the mnemonics that the window's buttons and labels had before any control.
    void seed(QWidget* window);
    bool isFree(QChar key) const;
    // The position of the letter to mark, or -1.
    int choose(const QString& text) const;

    QHash<QChar, QPointer<QWidget>> _owners;
};

// What the window tells assistive tools beyond what they see: which row the keys are at, and what has
// happened elsewhere. Main thread.
#pragma once

#include <QObject>
#include <QQuickItem>
#include <QString>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

namespace brimlet {

class Assistive : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    /// What is said now; empty after a moment, and while no tool listens.
    Q_PROPERTY(QString words READ words NOTIFY wordsChanged)

public:
    explicit Assistive(QObject* parent = nullptr);

    QString words() const { return m_words; }

    /// Has a sentence read out. Said twice it is read twice; an empty one is not.
    Q_INVOKABLE void say(const QString& sentence);

    /// Tells that an item with the role of an alert shows something new.
    Q_INVOKABLE void show(QQuickItem* alert);

    /// Tells that the keys are at an item now, though the keyboard's focus is at the list around it.
    Q_INVOKABLE void focus(QQuickItem* item);

signals:
    void wordsChanged(); ///< also when the same words are said again

    // What has been told, whether or not a tool listens.
    void said(const QString& sentence);
    void shown(QQuickItem* alert);
    void focused(QQuickItem* item);

private:
    QString m_words;
    QTimer m_forget;
};

} // namespace brimlet

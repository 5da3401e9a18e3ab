#include "views/interaction/Assistive.h"

#include <chrono>
#include <QAccessible>

namespace brimlet {

namespace {

/// Long enough for a tool on another process's bus to ask for it.
constexpr std::chrono::milliseconds wordsStay{1500};

void tell(QQuickItem& item, QAccessible::Event what) {
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(&item, what);
    QAccessible::updateAccessibility(&event);
}

} // namespace

Assistive::Assistive(QObject* parent)
    : QObject(parent) {
    m_forget.setSingleShot(true);
    m_forget.setInterval(wordsStay);
    connect(&m_forget, &QTimer::timeout, this, [this] {
        m_words.clear();
        emit wordsChanged();
    });
}

void Assistive::say(const QString& sentence) {
    if (sentence.isEmpty())
        return;
    emit said(sentence);
    if (!QAccessible::isActive())
        return;
    m_words = sentence;
    m_forget.start();
    emit wordsChanged();
}

void Assistive::show(QQuickItem* alert) {
    if (alert == nullptr)
        return;
    emit shown(alert);
    tell(*alert, QAccessible::ObjectShow);
}

void Assistive::focus(QQuickItem* item) {
    if (item == nullptr)
        return;
    emit focused(item);
    tell(*item, QAccessible::Focus);
}

} // namespace brimlet

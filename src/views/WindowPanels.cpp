#include "views/WindowPanels.h"

#include "app/EngineSingleton.h"

#include <utility>

namespace brimlet {

WindowPanels* WindowPanels::create(QQmlEngine* engine, QJSEngine*) {
    return engineSingleton<WindowPanels>(engine);
}

void WindowPanels::chooseFolder(const std::string& prompt, Answer answer) {
    await(std::move(answer));
    emit folderWanted(QString::fromStdString(prompt));
}

void WindowPanels::chooseFileToSave(const std::string& suggestedName, Answer answer) {
    await(std::move(answer));
    emit fileToSaveWanted(QString::fromStdString(suggestedName));
}

void WindowPanels::accept(const QUrl& place) {
    // The encoded form keeps bytes that are not valid text.
    std::string path =
        QByteArray::fromPercentEncoding(place.path(QUrl::FullyEncoded).toLatin1()).toStdString();
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    finish(path.empty() ? std::nullopt : std::optional(std::move(path)));
}

void WindowPanels::await(Answer answer) {
    finish(std::nullopt);
    m_answer = std::move(answer);
}

void WindowPanels::finish(std::optional<std::string> path) {
    if (const Answer answer = std::exchange(m_answer, {}))
        answer(std::move(path));
}

} // namespace brimlet

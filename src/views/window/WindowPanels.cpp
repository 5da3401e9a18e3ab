#include "views/window/WindowPanels.h"

#include "app/EngineSingleton.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace brimlet {

namespace {

using std::filesystem::path;

/// The encoded forms keep bytes that are not valid text.
std::string pathOf(const QUrl& place) {
    std::string path =
        QByteArray::fromPercentEncoding(place.path(QUrl::FullyEncoded).toLatin1()).toStdString();
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    return path;
}

QUrl urlOf(const std::string& path) {
    return QUrl(QStringLiteral("file://") +
                    QString::fromLatin1(QByteArray::fromStdString(path).toPercentEncoding("/")),
                QUrl::StrictMode);
}

/// Also a link that leads nowhere is there.
bool isThere(const std::string& file) {
    std::error_code error;
    return std::filesystem::exists(std::filesystem::symlink_status(file, error));
}

} // namespace

WindowPanels::WindowPanels(std::string folder, QObject* parent)
    : QObject(parent)
    , m_folder(std::move(folder)) {}

WindowPanels* WindowPanels::create(QQmlEngine* engine, QJSEngine*) {
    return engineSingleton<WindowPanels>(engine);
}

void WindowPanels::chooseFolder(const std::string& prompt, Answer answer) {
    await(std::move(answer));
    emit folderWanted(urlOf(m_folder), QString::fromStdString(prompt));
}

void WindowPanels::chooseFileToSave(const std::string& suggestedName, Answer answer) {
    await(std::move(answer));
    askForFile(suggestedName);
}

void WindowPanels::acceptFolder(const QUrl& folder) {
    std::string path = pathOf(folder);
    if (path.empty())
        return finish(std::nullopt);
    m_folder = path;
    finish(std::move(path));
}

void WindowPanels::acceptFile(const QUrl& file) {
    std::string chosen = pathOf(file);
    if (chosen.empty())
        return finish(std::nullopt);
    m_folder = path(chosen).parent_path().native();
    if (!isThere(chosen))
        return finish(std::move(chosen));
    m_fileToReplace = std::move(chosen);
    setAsksToReplace(true);
}

QString WindowPanels::nameToReplace() const {
    return QString::fromStdString(path(m_fileToReplace).filename().native());
}

void WindowPanels::replace() {
    finish(m_fileToReplace);
}

void WindowPanels::chooseAnotherName() {
    setAsksToReplace(false);
    askForFile(path(m_fileToReplace).filename().native());
}

void WindowPanels::await(Answer answer) {
    finish(std::nullopt);
    m_answer = std::move(answer);
}

void WindowPanels::askForFile(const std::string& name) {
    const std::string suffix = path(name).extension().native();
    emit fileToSaveWanted(urlOf((path(m_folder) / name).native()),
                          QString::fromStdString(suffix.substr(suffix.empty() ? 0 : 1)));
}

void WindowPanels::setAsksToReplace(bool asks) {
    if (std::exchange(m_asksToReplace, asks) != asks)
        emit asksToReplaceChanged();
}

void WindowPanels::finish(std::optional<std::string> path) {
    setAsksToReplace(false);
    if (const Answer answer = std::exchange(m_answer, {}))
        answer(std::move(path));
}

} // namespace brimlet

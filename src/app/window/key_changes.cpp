#include "app/window/key_changes.h"

#include <QStringList>

#include <filesystem>

#include "host/files.h"
#include "host/state_folder.h"

namespace tq {

namespace {

namespace fs = std::filesystem;

constexpr const char
    *head =
        "# What presses what: a command and its keys, with \"; \" between them, or none. F1, in\n"
        "# the window, lists the commands and changes this file.\n",
    *no_key = "none";

fs::path keys_path() { return config_folder() / "keys"; }

/// No keys, and why, when one is none.
QList<QKeySequence> keys_of(const QString& text, QString& fault) {
    if (text == no_key) return {};
    QList<QKeySequence> keys;
    for (const QString& word : text.split("; ", Qt::SkipEmptyParts)) {
        const QKeySequence key = QKeySequence::fromString(word.trimmed(), QKeySequence::PortableText);
        if (key.isEmpty() || key[0].key() == Qt::Key_unknown) fault = "\"" + word + "\" is no key";
        keys << key;
    }
    if (keys.isEmpty()) fault = "no key is given";
    return keys;
}

/// The first word of a line.
QString command_of(const QString& line) { return line.simplified().section(' ', 0, 0); }

/// Why a line is none.
QString parse_line(const QString& line, KeyChanges& changes) {
    const QString name = command_of(line), rest = line.section(' ', 1).trimmed();
    const std::optional<Shortcut::What> what = find_by_name(name.toStdString());
    if (!what) return "there is no command \"" + name + "\"";
    QString fault;
    QList<QKeySequence> keys = keys_of(rest, fault);
    if (fault.isEmpty()) changes.push_back({*what, std::move(keys)});
    return fault;
}

/// Empty where nothing is kept.
std::string kept_text(std::string& fault) {
    std::error_code ignored;
    if (!fs::exists(keys_path(), ignored)) return {};
    const FileBytes bytes = read_file(keys_path().string(), fault);
    return bytes ? *bytes : std::string();
}

}  // namespace

KeyChanges parse_key_changes(std::string_view text, std::vector<std::string>& faults) {
    KeyChanges changes;
    int number = 0;
    for (const QString& row : QString::fromUtf8(text.data(), qsizetype(text.size())).split('\n')) {
        ++number;
        const QString line = row.simplified();
        if (line.isEmpty() || line.startsWith('#')) continue;
        if (const QString fault = parse_line(line, changes); !fault.isEmpty())
            faults.push_back(QString("line %1: %2").arg(number).arg(fault).toStdString());
    }
    return changes;
}

KeyChanges kept_keys(std::vector<std::string>& faults) {
    std::string fault;
    const std::string text = kept_text(fault);
    if (!fault.empty()) faults.push_back(fault);
    KeyChanges changes = parse_key_changes(text, faults);
    for (std::string& told : faults) told = keys_path().string() + ": " + told;
    return changes;
}

bool keep_key(const Shortcut::What& what, const std::optional<QList<QKeySequence>>& keys,
              std::string& fault) {
    const std::string text = kept_text(fault);
    if (!fault.empty()) return false;
    QStringList lines = QString::fromStdString(text.empty() ? head : text).split('\n', Qt::SkipEmptyParts);
    lines.removeIf([&](const QString& line) { return command_of(line) == name_of(what); });
    if (keys)
        lines << QString(name_of(what)) + " " +
                     (keys->isEmpty() ? no_key
                                      : QKeySequence::listToString(*keys, QKeySequence::PortableText));
    std::error_code ignored;
    fs::create_directories(keys_path().parent_path(), ignored);
    return write_file(keys_path().string(), lines.join('\n').toStdString() + "\n", fault);
}

}  // namespace tq

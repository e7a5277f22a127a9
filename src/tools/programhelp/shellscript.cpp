// The scripts call PROGRAM --complete with the words of the command line. See hiddenoptions.h for
// what it prints.

#include "shellscript.h"

#include <QLatin1String>

#include <algorithm>
#include <iterator>

namespace Tavoro::Help {

namespace {

struct ScriptRow {
    const char *shell;
    const char *script; ///< %1 is the program.
};

// bash splits the line at colons and quotes: the program splits it itself and removes what stands
// before the word of bash.
constexpr ScriptRow rows[] = {
    {"bash", R"(# bash completion for %1

_%1() {
    local line reply
    mapfile -t reply < <(%1 --complete-line "${COMP_LINE:0:COMP_POINT}" \
        "${COMP_WORDS[COMP_CWORD]}" 2>/dev/null)
    COMPREPLY=()
    for line in "${reply[@]}"; do
        case $line in
        :files) compopt -o default 2>/dev/null; return ;;
        :nospace) compopt -o nospace 2>/dev/null ;;
        *) COMPREPLY+=("$line") ;;
        esac
    done
}

complete -F _%1 %1
)"},
    {"zsh", R"(#compdef %1

_%1() {
    local line
    local -a words_found descriptions flags
    while IFS= read -r line; do
        case $line in
        :files) _files; return ;;
        :nospace) flags=(-S '') ;;
        *)
            words_found+=("${line%%$'\t'*}")
            descriptions+=("${line/$'\t'/  -- }")
            ;;
        esac
    done < <(%1 --complete "${(@Q)words[2,CURRENT]}" 2>/dev/null)
    (( ${#words_found} )) && compadd $flags -l -d descriptions -a words_found
}

if [ "$funcstack[1]" = "_%1" ]; then
    _%1
else
    compdef _%1 %1
fi
)"},
    {"fish", R"(# fish completion for %1

function __complete_%1
    set -l words (commandline -opc) (commandline -ct)
    set -e words[1]
    for line in (%1 --complete $words 2>/dev/null)
        switch $line
            case :files
                __fish_complete_path (commandline -ct)
            case :nospace
            case '*'
                echo $line
        end
    end
end

complete -c %1 -f -a '(__complete_%1)'
)"},
};

} // namespace

QString completionScript(const QString &program, const QString &shell)
{
    const auto *const row =
        std::find_if(std::begin(rows), std::end(rows),
                     [&](const ScriptRow &each) { return shell == QLatin1String(each.shell); });
    if (row == std::end(rows))
        return {};
    return QString::fromLatin1(row->script).replace(QLatin1String("%1"), program);
}

} // namespace Tavoro::Help

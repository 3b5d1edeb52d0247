// SPDX-License-Identifier: GPL-3.0-or-later
#include "Completions.h"
#include "Words.h"

using namespace trackwise::cli;

namespace {

QByteArray words(std::span<const Option> options)
{
    QByteArrayList names;
    for (const Option &option : options)
        names << "--" + bytes(option.name);
    return names.join(' ');
}

QByteArray bashKind(Completion completion)
{
    switch (completion) {
    case Completion::Nothing:
        return "nothing";
    case Completion::Files:
        return "file";
    case Completion::Folders:
        return "directory";
    }
    Q_UNREACHABLE();
}

// What the options at hand want after them. Those of one name want the same wherever they are.
QByteArray bashValues()
{
    std::vector<Option> options(startOptions().begin(), startOptions().end());
    for (const Command &command : commands())
        for (const Option &option : optionsOf(command))
            options.push_back(option);
    QByteArray cases;
    for (const Option &option : options) {
        const QByteArray line =
            "    --" + bytes(option.name) +
            (option.choices.empty() ? ") kind='" + bashKind(option.completion) + '\''
                                    : ") kind=words names='" + bytes(option.choices) + '\'') +
            " ;;\n";
        if (option.takesValue() && !cases.contains(line))
            cases += line;
    }
    return cases;
}

QByteArray bashContext(const QByteArray &context, const QByteArray &names, Completion operands,
                       const QByteArray &options)
{
    const QByteArray kind = names.isEmpty() ? bashKind(operands) : "words";
    return "        " + context + ") kind='" + kind + "' names='" + names + "' options='" + options +
           "' ;;\n";
}

QByteArray bashContexts()
{
    QByteArray cases;
    for (const Command &command : commands()) {
        const QByteArray context = (bytes(command.group) + ' ' + bytes(command.word)).trimmed();
        cases += bashContext('\'' + context + '\'', {}, command.completion, words(optionsOf(command)));
    }
    for (const QByteArray &group : groups())
        cases += bashContext(group, wordsIn(group), Completion::Nothing, "--help");
    return cases + bashContext("*", {}, startOperand().completion, words(startOptions()));
}

} // namespace

QByteArray bashCompletion()
{
    QByteArray text = licence;
    text += R"sh(# What bash offers after "trackwise".
_trackwise() {
    local current=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]}
    local context='' kind='' names='' options=''
    # "--folder=x" comes as three words.
    if [[ $current == = ]]; then
        current=''
    elif [[ $option == = ]]; then
        option=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    ((COMP_CWORD < 2)) || context=${COMP_WORDS[1]}
    if [[ $context =~ ^(@GROUPS@)$ ]] && ((COMP_CWORD > 2)); then
        context+=" ${COMP_WORDS[2]}"
    fi

    case $option in
@VALUES@    esac
    if [[ -z $kind ]]; then
        case $context in
@CONTEXTS@        esac
        ((COMP_CWORD > 1)) || names='@FIRST@'
        [[ $current != -* ]] || kind=words names=$options
    fi
    mapfile -t COMPREPLY < <(compgen -W "$names" -- "$current")
    if [[ $kind == file || $kind == directory ]]; then
        compopt -o filenames 2>/dev/null
        mapfile -t -O ${#COMPREPLY[@]} COMPREPLY < <(compgen -A "$kind" -- "$current")
    fi
}
complete -F _trackwise trackwise
)sh";
    return text.replace("@GROUPS@", groups().join('|'))
        .replace("@FIRST@", firstWords().join(' '))
        .replace("@VALUES@", bashValues())
        .replace("@CONTEXTS@", bashContexts());
}

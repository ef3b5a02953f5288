#include "tool/tool.h"

#include <algorithm>
#include <new>
#include <ostream>

#include "tool/verbs.h"

namespace ruvo::tool {
namespace {

bool isHelp(const std::string& word) {
  return word == "--help" || word == "-h";
}

std::string synopsis(const VerbRow& verb) {
  std::string line = std::string(kToolName) + ' ' + std::string(verb.name);
  if (!verb.options.empty()) line += " [OPTION...]";
  return line + ' ' + std::string(verb.operands);
}

std::string optionText(const OptionRow& option) {
  std::string text(option.name);
  if (option.kind != OptionKind::Switch) text += ' ' + std::string(option.value);
  return text;
}

void addRow(std::string& text, const std::string& left, std::size_t column, std::string_view right) {
  text += "  " + left + std::string(column - left.size() + 2, ' ') + std::string(right) + '\n';
}

std::string helpOf(const VerbRow& verb) {
  std::string text = "Usage: " + synopsis(verb) + "\n\n" + std::string(verb.summary) + ".\n" + std::string(verb.help);
  if (verb.moreHelp) text += verb.moreHelp();
  if (verb.options.empty()) return text;
  std::size_t column = 0;
  for (const OptionRow& option : verb.options) column = std::max(column, optionText(option).size());
  text += "\nOptions:\n";
  for (const OptionRow& option : verb.options) addRow(text, optionText(option), column, option.help);
  return text;
}

// Of all verbs, or of those that begin with a word.
std::string helpOfAll(std::string_view firstWord = {}) {
  std::string text = "Usage: " + std::string(kToolName) + " VERB [OPTION...] FILE...\n\n";
  std::size_t column = 0;
  const auto left = [](const VerbRow& verb) { return std::string(verb.name) + ' ' + std::string(verb.operands); };
  for (const VerbRow& verb : verbTable()) column = std::max(column, left(verb).size());
  for (const VerbRow& verb : verbTable()) {
    if (firstWord.empty() || verb.name.starts_with(firstWord)) addRow(text, left(verb), column, verb.summary);
  }
  return text + '\n' + std::string(kToolName) +
         " VERB --help tells a verb's options; --version the version. Errors go to\n" + "standard error as \"" +
         std::string(kToolName) + ": FILE: words\", and the exit status is then 1.\n";
}

bool isFirstWord(std::string_view word) {
  return std::any_of(verbTable().begin(), verbTable().end(),
                     [&](const VerbRow& verb) { return verb.name.starts_with(std::string(word) + ' '); });
}

// The verb that the words begin with, which are then taken off.
const VerbRow* takeVerb(std::span<const std::string>& words) {
  for (const VerbRow& verb : verbTable()) {
    if (verb.name == words[0]) {
      words = words.subspan(1);
      return &verb;
    }
    if (words.size() > 1 && verb.name == words[0] + ' ' + words[1]) {
      words = words.subspan(2);
      return &verb;
    }
  }
  return nullptr;
}

int runVerb(const VerbRow& verb, std::span<const std::string> words, Console& console) {
  if (std::any_of(words.begin(), words.end(), isHelp)) {
    console.out() << helpOf(verb);
    return 0;
  }
  const std::string hint = " (see " + std::string(kToolName) + ' ' + std::string(verb.name) + " --help)";
  Arguments arguments;
  const std::string fault = Arguments::parse(words, verb.options, arguments);
  if (!fault.empty()) return console.refuse(fault + hint);
  const std::size_t given = arguments.operands().size();
  if (given < verb.fewest || given > verb.most) return console.refuse("usage: " + synopsis(verb) + hint);
  return verb.run(arguments, console);
}

int runWords(std::span<const std::string> words, Console& console) {
  if (words.empty()) return console.refuse("no verb (see " + std::string(kToolName) + " --help)");
  if (isHelp(words[0])) {
    console.out() << helpOfAll();
    return 0;
  }
  if (words[0] == "--version") {
    console.out() << kToolName << ' ' << RUVO_VERSION << '\n';
    return 0;
  }
  std::span<const std::string> rest = words;
  if (const VerbRow* verb = takeVerb(rest)) return runVerb(*verb, rest, console);
  if (words.size() > 1 && isHelp(words[1]) && isFirstWord(words[0])) {
    console.out() << helpOfAll(words[0] + ' ');
    return 0;
  }
  const std::string name = isFirstWord(words[0]) && words.size() > 1 ? words[0] + ' ' + words[1] : words[0];
  return console.refuse("no verb \"" + name + "\" (see " + std::string(kToolName) + " --help)");
}

}  // namespace

int run(std::span<const std::string> words, std::ostream& out, std::ostream& err) {
  Console console(out, err);
  int status = 1;
  try {
    status = runWords(words, console);
  } catch (const std::bad_alloc&) {
    status = console.refuse("not enough memory");
  }
  out.flush();
  return out ? status : console.refuse("standard output", "could not be written");
}

}  // namespace ruvo::tool

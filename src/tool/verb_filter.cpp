// Effects from the command line: the values of an effect's arguments as words.
#include <cmath>

#include "effects/model/effect_table.h"
#include "tool/picture_input.h"
#include "tool/picture_output.h"
#include "tool/value_words.h"
#include "tool/verbs.h"

namespace ruvo::tool {
namespace {

constexpr std::string_view kNone = "none";

std::string colourOrNoneText(double number) {
  return number < 0 ? std::string(kNone) : colourText(static_cast<Colour>(number));
}

// A choice as one word: "Left to right" is "left-to-right".
std::string wordOf(std::string_view choice) {
  std::string word;
  for (const char c : choice) {
    if (c == ' ') {
      word += '-';
    } else if (c != '&') {
      word += static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    }
  }
  return word;
}

std::string rangeText(const EffectArgument& argument) {
  switch (argument.kind) {
    case EffectValueKind::Whole:
    case EffectValueKind::Real:
      return numberText(argument.low) + " to " + numberText(argument.high);
    case EffectValueKind::PlainColour:
      return "RRGGBB";
    case EffectValueKind::ColourOrNone:
      return "RRGGBB or none";
    case EffectValueKind::Choice: {
      std::string words;
      for (const char* choice : argument.choices) {
        if (!words.empty()) words += '|';
        words += wordOf(choice);
      }
      return words;
    }
    case EffectValueKind::Switch:
      return "0 or 1";
    case EffectValueKind::Picture:
      return "a file";
  }
  return {};
}

std::string standardText(const EffectArgument& argument) {
  switch (argument.kind) {
    case EffectValueKind::PlainColour:
    case EffectValueKind::ColourOrNone:
      return colourOrNoneText(argument.standard);
    case EffectValueKind::Choice:
      return wordOf(argument.choices[static_cast<std::size_t>(argument.standard)]);
    default:
      return numberText(argument.standard);
  }
}

std::string argumentText(const EffectArgument& argument) {
  std::string text = "      " + std::string(argument.name) + ": " + rangeText(argument);
  if (*argument.unit) text += ' ' + std::string(argument.unit);
  if (argument.kind != EffectValueKind::Picture) text += " [" + standardText(argument) + ']';
  return text + '\n';
}

std::optional<double> choiceOf(const EffectArgument& argument, std::string_view text) {
  for (std::size_t i = 0; i < argument.choices.size(); ++i) {
    if (wordOf(argument.choices[i]) == text) return static_cast<double>(i);
  }
  return std::nullopt;
}

// Nothing for a word that does not fit.
std::optional<double> parseValue(const EffectArgument& argument, std::string_view text) {
  std::optional<double> value;
  switch (argument.kind) {
    case EffectValueKind::PlainColour:
      return parseColour(text);
    case EffectValueKind::ColourOrNone:
      if (text == kNone) return kNoColour;
      return parseColour(text);
    case EffectValueKind::Choice:
      return choiceOf(argument, text);
    case EffectValueKind::Switch:
      value = parseReal(text);
      return value == 0 || value == 1 ? value : std::nullopt;
    default:
      value = parseReal(text);
  }
  if (!value || !(*value >= argument.low && *value <= argument.high)) return std::nullopt;
  if (argument.kind == EffectValueKind::Whole && *value != std::floor(*value)) return std::nullopt;
  return value;
}

// Which argument a word is for, and its text. A word without a name goes to the next one.
struct Entry {
  std::size_t place;
  std::string_view text;
};
Entry entryOf(const Effect& effect, std::string_view word, std::size_t next) {
  const std::size_t equals = word.find('=');
  for (std::size_t i = 0; equals != std::string_view::npos && i < effect.arguments.size(); ++i) {
    if (effect.arguments[i].name == word.substr(0, equals)) return {i, word.substr(equals + 1)};
  }
  return {next, word};
}

// False when a word was refused, which has been told.
bool readValues(const Effect& effect, std::span<const std::string> words, std::vector<EffectValue>& values,
                Console& console) {
  std::size_t next = 0;
  for (const std::string& word : words) {
    const Entry entry = entryOf(effect, word, next);
    if (entry.place >= effect.arguments.size()) {
      console.refuse(std::string("filter ") + effect.name + " takes no value \"" + printable(word) + '"');
      return false;
    }
    next = entry.place + 1;
    const EffectArgument& argument = effect.arguments[entry.place];
    if (argument.kind == EffectValueKind::Picture) {
      ReadPicture read = readFile(std::string(entry.text), {.keepAlpha = true}, console);
      if (!read) return false;
      values[entry.place].picture = std::make_shared<clsDIB>(std::move(read.dib));
      continue;
    }
    const std::optional<double> value = parseValue(argument, entry.text);
    if (!value) {
      console.refuse(std::string(argument.name) + " takes " + rangeText(argument));
      return false;
    }
    values[entry.place].number = *value;
  }
  return true;
}

}  // namespace

std::string filterNames() {
  std::string text;
  for (const Effect& effect : effectTable()) {
    text += "  " + std::string(effect.name) + "  " + effect.help + '\n';
    for (const EffectArgument& argument : effect.arguments) text += argumentText(argument);
  }
  return text;
}

int filter(const Arguments& arguments, Console& console) {
  const std::span<const std::string> words = arguments.operands();
  const Effect* effect = effectOf(words.front());
  if (!effect) return console.refuse("there is no filter \"" + printable(words.front()) + '"');
  const std::string& source = words[words.size() - 2];
  const std::string& target = words.back();
  std::vector<EffectValue> values = standardValues(*effect);
  if (!readValues(*effect, words.subspan(1, words.size() - 3), values, console)) return 1;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (effect->arguments[i].kind == EffectValueKind::Picture && !values[i].picture)
      return console.refuse(std::string("filter ") + effect->name + " needs " + effect->arguments[i].name + "=FILE");
  }
  const PictureOutput plan(target, {});
  if (!plan.fault().empty()) return console.refuse(target, plan.fault());
  ReadPicture read = readFile(source, {.keepAlpha = plan.keepsAlpha()}, console);
  if (!read) return 1;
  if (!effect->apply(read.dib, EffectInput(std::move(values)), {})) return console.refuse("not enough memory");
  const std::string fault = plan.write(std::move(read.dib));
  return fault.empty() ? 0 : console.refuse(target, fault);
}

}  // namespace ruvo::tool

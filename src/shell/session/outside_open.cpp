#include "shell/session/outside_open.h"

#include <algorithm>

#include "base/paths.h"
#include "formats/format_table.h"

namespace ruvo {
namespace {

constexpr std::size_t kShortestPath = 5;

std::string withoutQuotes(std::string_view text) {
  std::string plain(text);
  plain.erase(std::remove(plain.begin(), plain.end(), '"'), plain.end());
  return plain;
}

}  // namespace

std::string outsidePathFromArgument(std::string_view argument, const std::filesystem::path& currentFolder) {
  const std::string text = withoutQuotes(argument);
  if (utf8Length(text) < kShortestPath) return text;
  const std::filesystem::path whole = currentFolder / pathOf(text);
  // ".." is left to the system: behind a link it leads elsewhere than the text tells.
  const bool climbs = std::find(whole.begin(), whole.end(), "..") != whole.end();
  return utf8Of(climbs ? whole : whole.lexically_normal());
}

std::optional<std::filesystem::path> fileFromOutside(std::string_view text) {
  const std::string path = withoutQuotes(text);
  if (utf8Length(path) < kShortestPath || !isOpenableExtension(extensionOf(path))) return std::nullopt;
  const std::filesystem::path file = pathOf(path);
  return fileExists(file) ? std::optional(file) : std::nullopt;
}

void OutsideOpener::push(std::string text, PendingOpen command) {
  if (!text.empty()) queue_.push_back({std::move(text), command});
}

void OutsideOpener::run() {
  if (running_) return;
  running_ = true;
  while (!queue_.empty() && !host_.busy()) {
    const Waiting next = std::move(queue_.front());
    queue_.pop_front();
    open(next);
  }
  running_ = false;
}

void OutsideOpener::open(const Waiting& next) {
  host_.unloadToolWindows();
  if (next.command == PendingOpen::CommandLine && next.text.starts_with(kAnimationMark))
    return host_.openAnimation(pathOf(std::string_view(next.text).substr(kAnimationMark.size())));
  const auto file = next.command == PendingOpen::CommandLine ? fileFromOutside(next.text) : pathOf(next.text);
  if (!file) return;
  if (host_.sdiOnly() && host_.anyDocumentOpen()) {
    host_.openInActiveDocument(*file, next.command);
  } else {
    host_.openInNewWindow(*file, next.command);
  }
}

}  // namespace ruvo

// Our own inflate (RFC 1951): a table-driven decoder of a raw deflate stream, whole in memory or piece by piece.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace ruvo {

enum class InflateResult { Done, TooLong, Bad };

// Receives output in order; answers false to stop.
using InflateTake = std::function<bool(std::span<const std::uint8_t>)>;

// Decodes a raw deflate stream and hands the output over in order, in pieces that live during the call only; `take`
// answers false to stop (Done). At most `limit` bytes come out: a stream that holds more ends there (TooLong). Bad for
// a damaged or truncated stream; what came before it was handed over. Works in about 100 KB whatever the stream says.
InflateResult inflateTo(std::span<const std::uint8_t> deflated, std::int64_t limit, const InflateTake& take);
// The same for a stream that lies in several places, as it does in the chunks of a file.
InflateResult inflateTo(std::span<const std::span<const std::uint8_t>> parts, std::int64_t limit,
                        const InflateTake& take);

// The same into an array, trimmed to the actual size.
InflateResult inflateAll(std::span<const std::uint8_t> deflated, std::int64_t limit, std::vector<std::uint8_t>& out);

}  // namespace ruvo

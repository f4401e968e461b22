#pragma once
#include <string>
#include <string_view>

#include "downloader/nws/Messages.h"

// How far the service has raised a warning above an ordinary one, and the title for that.
namespace nws {

// Each tier is announced separately.
enum class Tier { None, Observed, Considerable, Highest };

// The tier of the message, by the threat tags among its parameters.
Tier TierOf(const Message& message);

// The title of the message's alert: the event, or a short name of its tier. As short as ShortTitle.
std::string Title(const Message& message);

}  // namespace nws

#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

// Who the subscriber is and which network he is in: ModemManager tells it on the system bus, or oFono where that one
// knows no subscriber. The bus is reached at DBUS_SYSTEM_BUS_ADDRESS, else at its usual place.
namespace Modem {

// The fact of this name, as Scene::factText() has it: imsi, msisdn, home_network, current_network, roaming or friendly.
// Nothing when the modem can't tell.
//
// Nothing happens before the first question, which waits for the first answers of the services, one second at most.
// Later ones are answered from what is known, which follows what the services signal, also when no event loop runs. A
// bus that is not there, or goes, is looked for again at a question, once a second at most, and then waited for
// likewise; one that takes a connection and keeps silent is not.
std::optional<std::string> fact(std::string_view name);

// Has `listener` called, from the event loop or within a question, when a fact is another than before; not for what the
// first question finds. For one at a time.
void onChanged(std::function<void()> listener);

} // namespace Modem

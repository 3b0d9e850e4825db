#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

// One request to the messaging application: an action with named values in the order in which they were set.
//
//   SendMMSSMS   ContactList (percent-encoded, as in a link), and Files: the path of a file of the user's own
//                with the text
//   SendEmail    To (percent-encoded, as in a link), Cc, Bcc, Subject, Body
//
// Other values of these actions are announced, but a desktop has nothing to do with them.
class AM_ActionData
{
public:
    void setAction(std::string action);
    // Adds a value.
    void setValue(std::string name, std::string value);

    // Sends the request. 0 when it went out, non-zero when there is no such action or nothing can serve it.
    int invoke() const;

    // The first value set under `name`, or "".
    std::string_view value(std::string_view name) const;

private:
    std::string mAction;
    std::vector<std::pair<std::string, std::string>> mValues;
};

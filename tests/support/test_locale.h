// The tests run a second time under a locale with a decimal comma, which no file may notice.
#pragma once

namespace test {

// Takes --locale=NAME from the arguments and switches the C library to it. False, with a message,
// when there is no such locale or its decimal sign is no comma.
bool UseLocaleFromArguments(int& argc, char** argv);

}  // namespace test

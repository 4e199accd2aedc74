#include "platform/posix/print_server.h"

#include <dlfcn.h>
#include <sys/socket.h>

#include <chrono>
#include <future>
#include <thread>
#include <vector>

#include "errors/errors.h"

namespace platform {
namespace {

// The part of the print system's client library that is needed here. The library is there wherever
// the toolkit itself can reach a print server; the program must start where it is not.
class Cups {
  public:
    Cups() : library_(dlopen("libcups.so.2", RTLD_NOW | RTLD_LOCAL)) {
        if (library_ == nullptr)
            throw errors::FatalError("There is no print system on this computer.");
        Load("cupsServer", server);
        Load("ippPort", port);
        Load("cupsEncryption", encryption);
        Load("cupsSetPasswordCB2", setPassword);
        Load("httpConnect2", connect);
        Load("httpClose", close);
        Load("ippNewRequest", newRequest);
        Load("ippAddStrings", addStrings);
        Load("cupsDoRequest", doRequest);
        Load("ippFindAttribute", findAttribute);
        Load("ippFindNextAttribute", findNextAttribute);
        Load("ippGetString", getString);
        Load("ippGetBoolean", getBoolean);
        Load("ippDelete", deleteMessage);
        Load("cupsGetDefault2", getDefault);
        Load("cupsLastErrorString", lastError);
    }

    using Http = void;
    using Message = void;
    using Attribute = void;
    using Password = const char* (*)(const char*, Http*, const char*, const char*, void*);

    const char* (*server)();
    int (*port)();
    int (*encryption)();
    void (*setPassword)(Password, void*);
    Http* (*connect)(const char*, int, void*, int, int, int, int milliseconds, int*);
    void (*close)(Http*);
    Message* (*newRequest)(int operation);
    Attribute* (*addStrings)(Message*, int, int, const char*, int, const char*, const char* const*);
    Message* (*doRequest)(Http*, Message*, const char* resource);
    Attribute* (*findAttribute)(Message*, const char*, int);
    Attribute* (*findNextAttribute)(Message*, const char*, int);
    const char* (*getString)(Attribute*, int, const char**);
    int (*getBoolean)(Attribute*, int);
    void (*deleteMessage)(Message*);
    const char* (*getDefault)(Http*);
    const char* (*lastError)();

  private:
    template <typename Function>
    void Load(const char* name, Function& function) {
        function = reinterpret_cast<Function>(dlsym(library_, name));
        if (function == nullptr)
            throw errors::FatalError("The print system of this computer is unknown.");
    }

    void* library_;  // stays loaded, like those of the toolkit
};

constexpr auto kPatience = std::chrono::milliseconds(1500);
constexpr int kGetPrinters = 0x4002;
constexpr int kOperationGroup = 0x01, kKeyword = 0x44, kAnyValue = 0;

std::string Text(const char* text) {
    return text != nullptr ? text : "";
}

struct Printer {
    std::string name;
    bool acceptsJobs;
};

struct Answer {
    std::vector<Printer> printers;
    std::string byDefault;
};

std::vector<Printer> PrintersIn(const Cups& cups, Cups::Message* answer) {
    std::vector<Printer> printers;
    // Every printer has both, in the same order.
    void* name = cups.findAttribute(answer, "printer-name", kAnyValue);
    for (; name != nullptr; name = cups.findNextAttribute(answer, "printer-name", kAnyValue)) {
        printers.push_back({Text(cups.getString(name, 0, nullptr)), true});
    }
    constexpr const char* kAccepts = "printer-is-accepting-jobs";
    void* accepts = cups.findAttribute(answer, kAccepts, kAnyValue);
    for (Printer& printer : printers) {
        if (accepts == nullptr) break;
        printer.acceptsJobs = cups.getBoolean(accepts, 0) != 0;
        accepts = cups.findNextAttribute(answer, kAccepts, kAnyValue);
    }
    return printers;
}

Answer AskServer() {
    const Cups cups;
    // Nobody is asked for a password before it is known whether there is a printer at all.
    const auto noPassword = [](const char*, void*, const char*, const char*, void*) -> const char* {
        return nullptr;
    };
    cups.setPassword(noPassword, nullptr);
    const std::string server = Text(cups.server());
    void* const http =
        cups.connect(server.c_str(), cups.port(), nullptr, AF_UNSPEC, cups.encryption(), 1,
                     static_cast<int>(kPatience.count()), nullptr);
    if (http == nullptr) {
        throw errors::FatalError("There is no printer: no print server answers at " + server + ".");
    }
    void* const request = cups.newRequest(kGetPrinters);
    const char* const wanted[] = {"printer-name", "printer-is-accepting-jobs"};
    cups.addStrings(request, kOperationGroup, kKeyword, "requested-attributes", 2, nullptr, wanted);
    void* const message = cups.doRequest(http, request, "/");
    if (message == nullptr) {
        const std::string reason = Text(cups.lastError());
        cups.close(http);
        throw errors::FatalError("There is no printer: the print server at " + server +
                                 " says: " + reason);
    }
    Answer answer{PrintersIn(cups, message), {}};
    cups.deleteMessage(message);
    if (!answer.printers.empty()) answer.byDefault = Text(cups.getDefault(http));
    cups.close(http);
    return answer;
}

const Printer& Select(const Answer& answer, const std::string& chosen) {
    for (const std::string& wanted : {chosen, answer.byDefault}) {
        for (const Printer& printer : answer.printers) {
            if (printer.name == wanted) return printer;
        }
    }
    return answer.printers.front();
}

}  // namespace

std::string PrinterToUse(const std::string& chosen) {
    // In a thread of its own, as a server that accepts the call and then says nothing can only be
    // left alone.
    std::packaged_task<Answer()> task(AskServer);
    std::future<Answer> asked = task.get_future();
    std::thread(std::move(task)).detach();
    if (asked.wait_for(kPatience) != std::future_status::ready) {
        throw errors::FatalError("There is no printer: the print server does not answer.");
    }
    const Answer answer = asked.get();
    if (answer.printers.empty()) {
        throw errors::FatalError("There is no printer: the print server has none.");
    }
    const Printer& printer = Select(answer, chosen);
    // The toolkit would send the pages, and say nothing when they are refused.
    if (!printer.acceptsJobs) {
        throw errors::FatalError("The printer " + printer.name +
                                 " does not accept anything to print.");
    }
    return printer.name;
}

}  // namespace platform

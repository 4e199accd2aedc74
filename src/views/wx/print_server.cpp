#include "views/wx/print_server.h"

#include <cups/cups.h>

#include <chrono>
#include <future>
#include <memory>
#include <thread>
#include <vector>

#include "errors/errors.h"

namespace views::wx {
namespace {

using errors::FatalError;

constexpr auto kPatience = std::chrono::milliseconds(1500);

struct Printer {
    std::string name;
    bool acceptsJobs = true;
};

struct Answer {
    std::vector<Printer> printers;
    std::string byDefault;
};

std::vector<Printer> PrintersIn(ipp_t* answer) {
    std::vector<Printer> printers;
    // Every printer has both attributes, in the same order.
    const auto each = [answer](const char* name, auto take) {
        for (auto* at = ippFindAttribute(answer, name, IPP_TAG_ZERO); at != nullptr;
             at = ippFindNextAttribute(answer, name, IPP_TAG_ZERO)) {
            take(at);
        }
    };
    each("printer-name", [&](ipp_attribute_t* name) {
        const char* text = ippGetString(name, 0, nullptr);
        printers.push_back({text != nullptr ? text : ""});
    });
    std::size_t at = 0;
    each("printer-is-accepting-jobs", [&](ipp_attribute_t* accepts) {
        if (at < printers.size()) printers[at++].acceptsJobs = ippGetBoolean(accepts, 0) != 0;
    });
    return printers;
}

Answer AskServer() {
    // Nobody is asked for a password before it is known whether there is a printer at all.
    cupsSetPasswordCB2([](const char*, http_t*, const char*, const char*,
                          void*) -> const char* { return nullptr; },
                       nullptr);
    const std::string server = cupsServer();
    const std::unique_ptr<http_t, decltype(&httpClose)> http(
        httpConnect2(server.c_str(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                     static_cast<int>(kPatience.count()), nullptr),
        httpClose);
    if (!http) {
        throw FatalError("There is no printer: no print server answers at " + server + ".");
    }
    ipp_t* const request = ippNewRequest(IPP_OP_CUPS_GET_PRINTERS);
    const char* const wanted[] = {"printer-name", "printer-is-accepting-jobs"};
    ippAddStrings(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", 2, nullptr,
                  wanted);
    const std::unique_ptr<ipp_t, decltype(&ippDelete)> answer(
        cupsDoRequest(http.get(), request, "/"), ippDelete);
    if (!answer) {
        throw FatalError("There is no printer: the print server at " + server +
                         " says: " + cupsLastErrorString());
    }
    auto printers = PrintersIn(answer.get());
    const char* byDefault = printers.empty() ? nullptr : cupsGetDefault2(http.get());
    return {std::move(printers), byDefault != nullptr ? byDefault : ""};
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
        throw FatalError("There is no printer: the print server does not answer.");
    }
    const Answer answer = asked.get();
    if (answer.printers.empty()) {
        throw FatalError("There is no printer: the print server has none.");
    }
    const Printer& printer = Select(answer, chosen);
    // The toolkit would send the pages, and say nothing when they are refused.
    if (!printer.acceptsJobs) {
        throw FatalError("The printer " + printer.name + " does not accept anything to print.");
    }
    return printer.name;
}

}  // namespace views::wx

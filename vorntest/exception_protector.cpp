#include "vorntest/exception_protector.h"

#include "host/root/od_error.h"

#include <cppunit/Message.h>

#include <cxxabi.h>

#include <cstdlib>
#include <memory>
#include <string>

namespace vorntest {

namespace {

std::string className(std::type_info const& type)
{
    int status = 0;
    std::unique_ptr<char, decltype(&std::free)> const name(
        abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), &std::free);
    return status == 0 ? name.get() : type.name();
}

CppUnit::Message uncaught(std::string const& type, std::string const& text)
{
    return CppUnit::Message("uncaught exception of type " + type, text);
}

} // namespace

bool ExceptionProtector::protect(CppUnit::Functor const& functor, CppUnit::ProtectorContext const& context)
{
    try {
        return functor();
    } catch (OdError const& error) {
        CppUnit::Message message = uncaught(className(typeid(error)), error.description().toUtf8());
        message.addDetail("error code " + std::to_string(error.code()));
        reportError(context, message);
    } catch (char const* text) {
        reportError(context, uncaught("char const*", text ? text : "(null)"));
    } catch (wchar_t const* text) {
        reportError(context, uncaught("wchar_t const*", text ? odWideToUtf8(text) : "(null)"));
    } catch (std::string const& text) {
        reportError(context, uncaught("std::string", text));
    } catch (std::wstring const& text) {
        reportError(context, uncaught("std::wstring", odWideToUtf8(text)));
    } catch (OdString const& text) {
        reportError(context, uncaught("OdString", text.toUtf8()));
    }
    return false;
}

} // namespace vorntest

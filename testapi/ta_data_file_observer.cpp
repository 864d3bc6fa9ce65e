#include "testapi/ta_data_file_observer.h"

#include <utility>

namespace ta {

namespace {

DataFileObserver* s_observer = nullptr;

} // namespace

DataFileObserver* DataFileObserver::current()
{
    return s_observer;
}

DataFileObserver* DataFileObserver::install(DataFileObserver* observer)
{
    return std::exchange(s_observer, observer);
}

} // namespace ta

// Read by ThreadSanitizer in every executable, the programs that tests start included. Qt and the
// event loop below it are built without it, so that their locks go unseen, and an event that Qt
// makes on one of its threads and frees on another looks like a race. Only what these libraries do
// themselves is left out; code of ours that they call is not, but for the function that the
// meta-object compiler writes: the thread of the bus asks objects of ours for their class, under
// such a lock, when a connection closes.

extern "C" __attribute__((visibility("default"))) const char* __tsan_default_suppressions();

extern "C" const char* __tsan_default_suppressions() {
  return "called_from_lib:libQt6Core.so\n"
         "called_from_lib:libQt6DBus.so\n"
         "called_from_lib:libdbus-1.so\n"
         "called_from_lib:libglib-2.0.so\n"
         "race:::metaObject() const\n";
}

// Names of instances: class name, underscore, number.
#pragma once

/// The composed name, in the shared buffer gInstanceNameString; cut where that ends.
const char* ComposeInstanceName(const char* className, int number);

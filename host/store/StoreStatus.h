#pragma once

// Status of a store operation; 0 is success. The numbers are what log lines show, so they stay.
enum StoreStatus {
    STORE_OK = 0,
    STORE_NOT_FOUND = 1,
    STORE_WRONG_TYPE = 2,
    STORE_UNWRITABLE = 3, // read-only, full, or without a file
    STORE_BUSY = 4,       // another process held the write lock for too long
    STORE_FAILED = 5,     // the file answered with any other error
};

#pragma once

#include "XPhone.h"

#include <string>

// What was measured over all lives.
struct Measures
{
    int lives = 0;
    int pauses = 0;         // of retries
    double worstAnswer = 0; // milliseconds
    int weighings = 0;
    long worstGrowth = 0; // kilobytes
};

// One life of the program, from its start to its end, and what is wrong with it.
class Life
{
public:
    // Starts the program, which may grow by so many kilobytes, and waits for its first page.
    Life(XPhone& phone, Measures& measures, long growthLimit);

    // Asks the program for answers, which must come in time, or else it must have ended as it should.
    void check();
    // Whether the root page has the keys; includes a check().
    bool isAtRoot();
    // Looks how much memory the program has. For moments when nothing but the root page is open.
    void weigh();

    // Nothing is left to be done: it has ended, or there is a fault.
    bool isOver() const { return mOver; }
    // Empty when all is well.
    const std::string& fault() const { return mFault; }

    XPhone& phone() { return mPhone; }

private:
    void ask();
    void end();
    void fail(const std::string& fault);

    XPhone& mPhone;
    Measures& mMeasures;
    const long mGrowthLimit;
    std::string mRootBar; // the root's title bar, which looks like no other
    int mWeighings = 0;
    long mLightest = 0;
    bool mOver = false;
    std::string mFault;
};

#pragma once

#include <QAbstractButton>

// Draws on an option a small picture of its signal form (an index of kSignals): in the colour of the option's text,
// sharp at every scale, and as high as the text.
void SetSignalPicture(QAbstractButton& option, int signal);

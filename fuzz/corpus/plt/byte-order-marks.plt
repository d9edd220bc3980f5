PU1 2;
﻿PD3 4;
﻿﻿PD5 6;

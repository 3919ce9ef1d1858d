// The README's picture of the studio: the Key Frame Animation dialog beside the view with a few
// key frames, written to $STUDIO_ARTIFACTS/studio.png.

import assert from 'node:assert/strict';
import fs from 'node:fs';
import { describe, it } from 'node:test';

import { appendViews, openKeyFrames, selectLines, useStudio } from './person.mjs';
import { screenshot } from './support/studio.mjs';

describe('the studio screenshot', () => {
    // Wide enough for the dialog to stand beside the picture rather than over most of it.
    const session = useStudio({ width: 1600, height: 860 });

    it('shows the Key Frame Animation dialog beside the view', async () => {
        const { page } = session;
        const keyFrames = await openKeyFrames(page);
        await appendViews(page, keyFrames, 4, { dx: 40, dy: 0 });
        await selectLines(keyFrames, [2]);
        // The full-quality picture follows the drags' half-size ones 150 ms after the last move.
        await page.waitForTimeout(500);
        const file = await screenshot(page, 'studio');
        assert.ok(fs.statSync(file).size > 10000);
    });
});

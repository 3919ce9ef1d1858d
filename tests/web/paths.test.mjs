// The camera path tools in the studio as a person uses them: a key frame list opened in the Key
// Frame Animation dialog and the path check's warnings beside it, the list animated, a frame of
// the run scrubbed to, the camera path drawn over the view, and back to the live view. The
// pictures are compared as the canvas shows them; the path's colour is the renderer's amber.

import assert from 'node:assert/strict';
import { writeFile } from 'node:fs/promises';
import path from 'node:path';
import { before, describe, it } from 'node:test';

import {
    assertEventually, button, chooseDialogMenu, chooseFile, openKeyFrames, useStudio, waitForLines,
} from './person.mjs';

// A key frame of the demo's views: its name, place, angles (psi, theta, alpha), width and frames.
function keyFrame(name, position, angles, width, frames) {
    return `%KeyFrameView
 Name "${name}"
 Position ${position.join(' ')}
 Angle ${angles.join(' ')}
 Width ${width}
 FrameCount ${frames}
 SolutionTime 0
%KeyFrameView
`;
}
const list = (...keyFrames) => `#!KeyFrame 1\n\n${keyFrames.join('\n')}`;

// examples/flight.keyframe's first leg, a quarter turn over the demo in 30 frames; and a half turn
// less half a degree, which the check warns of.
const OVERVIEW = keyFrame('Overview', [2.59808, -4.5, 3.1], [60, 30, 0], 3.2, 30);
const NORTH_EAST = keyFrame('North-east', [3.67423, 2.12132, 4.34264], [45, 120, 0], 3, 1);
const START = keyFrame('Start', [2.59808, -4.5, 3.1], [60, 30, 0], 3.2, 40);
const ROUND = keyFrame('Round', [-2.55864, 4.52247, 3.1], [60, 209.5, 0], 3.2, 1);

// The path's amber (255, 199, 51) in the canvas, give or take what JPEG does to a 2-pixel line.
const AMBER = [255, 199, 51];
const AMBER_TOLERANCE = [40, 40, 40];

// What the canvas shows once the pictures stopped coming for a while: the full picture after a
// move, as a data URL, with its count of amber pixels.
async function settledPicture(page, quietMs = 500) {
    let drawn = await page.evaluate(() => window.studio.framesDrawn);
    for (;;) {
        await page.waitForTimeout(quietMs);
        const now = await page.evaluate(() => window.studio.framesDrawn);
        if (now === drawn) break;
        drawn = now;
    }
    return page.evaluate(([amber, tolerance]) => {
        const canvas = document.getElementById('view');
        const { data } = canvas.getContext('2d').getImageData(0, 0, canvas.width, canvas.height);
        let amberPixels = 0;
        for (let i = 0; i < data.length; i += 4) {
            if ([0, 1, 2].every((c) => Math.abs(data[i + c] - amber[c]) <= tolerance[c])) amberPixels += 1;
        }
        return { url: canvas.toDataURL(), amberPixels };
    }, [AMBER, AMBER_TOLERANCE]);
}

describe('camera paths in the studio', () => {
    const session = useStudio();
    let page;
    let keyFrames;
    let panel;

    const open = async (name, text, lines) => {
        await writeFile(path.join(session.studio.cwd, name), text);
        await chooseDialogMenu(keyFrames, 'File', 'Open Animation File...');
        await chooseFile(page, name);
        await waitForLines(keyFrames, lines);
    };

    before(async () => {
        ({ page } = session);
        keyFrames = await openKeyFrames(page);
        panel = keyFrames.locator('.path-check');
    });

    it('shows the path check\'s warning beside the key frame list', async () => {
        await open('half-turn.keyframe', list(START, ROUND), ['Start', 'Round']);
        await assertEventually(async () => {
            const warnings = await panel.locator('li').allTextContents();
            assert.equal(warnings.length, 1, warnings.join('\n'));
            assert.equal(warnings[0],
                'leg 1 ("Start" -> "Round"): theta turns +179.50 degrees, within 1 degree of a half turn: '
                + 'which way it turns depends on rounding');
        });
        assert.equal(await panel.locator('li').getAttribute('data-kind'), 'half-turn');
    });

    it('checks the list again when it changes, and says when it is clean', async () => {
        await open('quarter-turn.keyframe', list(OVERVIEW, NORTH_EAST), ['Overview', 'North-east']);
        await assertEventually(async () => {
            assert.equal(await panel.locator('li').count(), 0);
            assert.match(await panel.locator('.path-check-status').textContent(), /^2 key frames, 31 frames\nNo warnings$/);
        });
    });

    it('scrubs through the frames of the run and shows each one', async () => {
        assert.equal(await page.locator('#flight-bar').isHidden(), true, 'no run yet');
        await button(keyFrames, 'Animate All').click();
        await page.locator('#flight-bar').waitFor({ state: 'visible', timeout: 60000 });
        assert.deepEqual(await page.evaluate(() => window.studio.state.flight),
            { frames: 31, running: false, frame: null, path: false });

        const scrubber = page.locator('#scrubber');
        await scrubber.fill('0');
        await assertEventually(async () => assert.equal(await page.locator('#scrub-frame').textContent(), 'Frame 0 of 30'));
        await assertEventually(async () => assert.equal(await page.evaluate(() => window.studio.state.flight.frame), 0));
        const first = await settledPicture(page);
        await scrubber.fill('15');
        await assertEventually(async () => assert.equal(await page.evaluate(() => window.studio.state.flight.frame), 15));
        const middle = await settledPicture(page);
        assert.notEqual(middle.url, first.url, 'frame 15 shows another view than frame 0');
    });

    it('draws the camera path over the view when Path is on', async () => {
        const without = await settledPicture(page);
        await page.locator('#path-toggle').click();
        await assertEventually(async () => assert.equal(await page.locator('#path-toggle').isChecked(), true));
        const withPath = await settledPicture(page);
        assert.ok(withPath.amberPixels > without.amberPixels + 50,
            `amber pixels: ${without.amberPixels} without the path, ${withPath.amberPixels} with it`);
    });

    it('goes back to the live view with Live', async () => {
        await page.locator('#live-button').click();
        await assertEventually(async () => {
            assert.equal(await page.evaluate(() => window.studio.state.flight.frame), null);
            assert.equal(await page.locator('#scrub-frame').textContent(), 'Live');
        });
        assert.equal(await page.locator('#live-button').isDisabled(), true);
    });
});
